// A calendar on paper: the view in front, whole, on one page.
#pragma once

class QPagedPaintDevice;
class QWidget;

namespace lm {

class CalendarPage;
class frmMain;

// Shows the print preview, from which it can be printed, or written as a PDF.
void PrintCalendar(frmMain& screen, const CalendarPage& page, QWidget* parent);
// False when the device takes nothing.
bool PaintCalendar(QPagedPaintDevice& paper, frmMain& screen, const CalendarPage& page);

}  // namespace lm
