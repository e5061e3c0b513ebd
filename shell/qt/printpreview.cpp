#include "shell/qt/printpreview.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "shell/qt/freearea.h"

namespace lm {
namespace {

// Qt leaves the boxes in its bar without names; the buttons have theirs.
void NameForReaders(QPrintPreviewDialog& preview) {
  for (auto* box : preview.findChildren<QLineEdit*>()) box->setAccessibleName(QObject::tr("Page"));
  for (auto* zoom : preview.findChildren<QComboBox*>()) {
    const QString name = QObject::tr("Zoom");
    zoom->setAccessibleName(name);
    zoom->setAccessibleDescription(name);  // on Linux its name is its value
    if (zoom->lineEdit()) zoom->lineEdit()->setAccessibleName(name);
  }
}

}  // namespace

void ShowPrintPreview(const QString& title, const std::function<void(QPrinter&)>& paint,
                      QWidget* parent) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(title);
  QPrintPreviewDialog preview(&printer, parent);
  preview.setWindowTitle(title);
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                   [&](QPrinter* paper) { paint(*paper); });
  NameForReaders(preview);
  preview.resize(QSize(1000, 720).boundedTo(FreeArea(preview).size()));
  preview.exec();
}

}  // namespace lm
