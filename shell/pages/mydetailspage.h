// The My Details page: what stands about the user on invoices and forms.
#pragma once

#include <array>
#include <memory>

#include "shell/pages/mainpage.h"
#include "shell/pages/mydetails.h"

namespace lm {

class MyDetailsPage : public MainPage {
 public:
  explicit MyDetailsPage(frmMain& window);

  LabelField lblMyName{&window, "lblMyName"};
  LabelField lblMyDetailsHint{&window, "lblMyDetailsHint"};
  TabField tabMyDetails{&window, "tabMyDetails", {kMyDetailsTabs.begin(), kMyDetailsTabs.end()}};

  void DataLoaded() override;
  void Shown() override;

 private:
  bool Typed(const MyDetailSpec& spec, TextField& box);
  void ShowDetails();

  // In the order of kMyDetailSpecs. Every field can be written to, whatever tab is in front.
  std::array<std::unique_ptr<TextField>, kMyDetailSpecs.size()> boxes_;
};

}  // namespace lm
