#include "shell/pages/mydetailspage.h"

#include "core/text.h"
#include "documents/moneyowed.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::MyDetails, "My Details", "mydetails", "mnuViewMyDetails"};

}  // namespace

MyDetailsPage::MyDetailsPage(frmMain& theWindow) : MainPage(theWindow, kSpec) {
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    const MyDetailSpec& spec = kMyDetailSpecs[i];
    boxes_[i] = std::make_unique<TextField>(&window, MyDetailBox(spec));
    boxes_[i]->onEntered = [this, &spec, box = boxes_[i].get()] { return Typed(spec, *box); };
  }
  lblMyDetailsHint.SetVisible(false);
  ShowDetails();
  AddTip({"My Details",
          "What you enter here appears on your invoices and pension forms, so it is worth "
          "completing before the first of them. Changes are kept when you save."});
}

bool MyDetailsPage::Typed(const MyDetailSpec& spec, TextField& box) {
  TypeMyDetail(ledger, spec.field, spec.box.empty() ? box.Text() : Trim(box.Text()));
  if (spec.field == kDaysToPayField) FillDueDates(ledger);
  lblMyName.SetText(MyName(ledger));
  lblMyDetailsHint.SetText(MyDetailHint(spec, box.Text()));
  lblMyDetailsHint.SetVisible(!lblMyDetailsHint.Text().empty());
  window.SetWindowTitle();
  return true;
}

void MyDetailsPage::DataLoaded() {
  ledger.typedDetails.clear();
  ShowDetails();
  window.SetWindowTitle();
}

void MyDetailsPage::Shown() { ShowDetails(); }

void MyDetailsPage::ShowDetails() {
  for (std::size_t i = 0; i < boxes_.size(); ++i)
    boxes_[i]->SetText(MyDetail(ledger, kMyDetailSpecs[i].field));
  lblMyName.SetText(MyName(ledger));
}

}  // namespace lm
