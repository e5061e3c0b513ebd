#include "shell/qt/headermenu.h"

#include <QMenu>

#include "shell/columnchoice.h"
#include "shell/qt/gridview.h"
#include "shell/qt/qtext.h"

namespace lm {

void ShowHeaderMenu(GridView& list, int col, const QPoint& place) {
  Grid* grid = list.Shown();
  if (!grid || !list.CommitEditor()) return;
  QMenu menu(&list);
  menu.setObjectName("mnuHeader");
  for (const ColumnChoice& choice : ColumnChoices(*grid)) {
    // An ampersand of a caption is no underlined letter, and a caption may have two lines.
    QString caption = ToQt(choice.caption);
    QAction* entry = menu.addAction(caption.replace('&', "&&").replace('\n', ' '));
    entry->setCheckable(true);
    entry->setChecked(choice.shown);
    entry->setEnabled(choice.mayChange);
    QObject::connect(entry, &QAction::triggered, &list,
                     [grid, key = choice.key](bool shown) { ShowColumn(*grid, key, shown); });
  }
  menu.addSeparator();
  QAction* fit = menu.addAction(QObject::tr("&Fit This Column to Its Contents"));
  fit->setEnabled(col > 0 && grid->ColVisible(col));
  QObject::connect(fit, &QAction::triggered, &list, [&list, col] { list.FitColumn(col); });
  QObject::connect(menu.addAction(QObject::tr("Fit &All Columns to Their Contents")),
                   &QAction::triggered, &list, [&list, grid] {
                     for (int each = 1; each < grid->Cols(); ++each) list.FitColumn(each);
                   });
  menu.addSeparator();
  QObject::connect(menu.addAction(QObject::tr("&Reset Columns")), &QAction::triggered, &list,
                   [grid] { ResetColumns(*grid); });
  menu.exec(place);
}

}  // namespace lm
