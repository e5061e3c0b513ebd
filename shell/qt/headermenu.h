// The menu of a list's header: which columns it shows, how wide they are, and the way back.
#pragma once

#include <QPoint>

namespace lm {

class GridView;

// On the header of this column; -1 for the room beside the columns.
void ShowHeaderMenu(GridView& list, int col, const QPoint& place);

}  // namespace lm
