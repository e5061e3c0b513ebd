// The pages of the main window.
#pragma once

#include <memory>
#include <vector>

namespace lm {

class MainPage;
class frmMain;

// In the order of the shortcut bar's columns.
std::vector<std::unique_ptr<MainPage>> MakePages(frmMain& window);

}  // namespace lm
