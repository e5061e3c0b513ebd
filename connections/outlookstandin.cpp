#include "connections/outlookstandin.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

#include "core/text.h"

namespace lm {
namespace {

// "03/02/2026 09:00", "03 Feb 2026 11:59 PM": minutes since the beginning of days.
double Minutes(Date date) { return std::round(date * 1440); }

std::optional<double> MinutesOfText(const std::string& text) {
  if (const auto date = CellDateTime(text)) return Minutes(*date);
  const auto words = Split(text, ' ');
  if (words.size() != 5 || words[2].size() != 4) return std::nullopt;
  const auto month = MonthOfText(std::string(words[1]) + " " + std::string(words[2].substr(2)));
  const auto time = CellTime(words[3]);
  if (!month || !time) return std::nullopt;
  const std::string numbers = std::string(words[0]) + CellText(*month).substr(2, 4);
  const auto day = CellDate(numbers + std::string(words[2]));
  if (!day) return std::nullopt;
  const bool twelve = words[3].starts_with("12");
  return Minutes(*day + *time + (words[4] == "PM" && !twelve ? 0.5 : 0) -
                 (words[4] == "AM" && twelve ? 0.5 : 0));
}

using Test = std::function<bool(const OutlookProperties&)>;

Test TimeTest(Date OutlookProperties::*property, std::string_view comparison,
              const std::string& value) {
  const auto asked = MinutesOfText(value);
  if (!asked) throw OutlookFault("The filter's date is none: " + value);
  return [=](const OutlookProperties& item) {
    const double minutes = Minutes(item.*property);
    if (comparison == "=") return minutes == *asked;
    return comparison == ">=" ? minutes >= *asked : minutes <= *asked;
  };
}

Test TextTest(std::string OutlookProperties::*property, const std::string& value) {
  return [=](const OutlookProperties& item) { return EqualsIgnoreCase(item.*property, value); };
}

// Reads [Property] = "value" AND ... from the front on.
class Filter {
 public:
  explicit Filter(std::string_view text) : rest_(text) {}

  Test Read() {
    std::vector<Test> tests{Term()};
    while (!rest_.empty()) {
      Take(" AND ");
      tests.push_back(Term());
    }
    return [tests](const OutlookProperties& item) {
      return std::ranges::all_of(tests, [&](const Test& test) { return test(item); });
    };
  }

 private:
  [[noreturn]] void Fail() {
    throw OutlookFault("The filter is not understood: " + std::string(rest_));
  }

  void Take(std::string_view expected) {
    if (!rest_.starts_with(expected)) Fail();
    rest_.remove_prefix(expected.size());
  }
  std::string_view TakeUpTo(char end) {
    const std::size_t at = rest_.find(end);
    if (at == std::string_view::npos) Fail();
    const std::string_view taken = rest_.substr(0, at);
    rest_.remove_prefix(at + 1);
    return taken;
  }
  std::string TakeQuoted() {
    Take("\"");
    std::string value(TakeUpTo('"'));
    while (rest_.starts_with('"')) {
      rest_.remove_prefix(1);
      value.append("\"").append(TakeUpTo('"'));
    }
    return value;
  }

  Test Term() {
    Take("[");
    const std::string_view property = TakeUpTo(']');
    Take(" ");
    const std::string_view comparison = TakeUpTo(' ');
    const std::string value = TakeQuoted();
    if (comparison == "=" && property == "Subject")
      return TextTest(&OutlookProperties::subject, value);
    if (comparison == "=" && property == "Location")
      return TextTest(&OutlookProperties::location, value);
    if (comparison != "=" && comparison != ">=" && comparison != "<=") Fail();
    if (property == "Start") return TimeTest(&OutlookProperties::start, comparison, value);
    if (property == "End") return TimeTest(&OutlookProperties::end, comparison, value);
    Fail();
  }

  std::string_view rest_;
};

}  // namespace

class StandInItem : public OutlookItem {
 public:
  StandInItem(OutlookStandIn& outlook, OutlookStandIn::Appointment appointment)
      : outlook_(outlook), appointment_(std::move(appointment)), properties_(*appointment_) {}

  OutlookProperties Read() override {
    outlook_.Operate();
    return properties_;
  }
  void Write(const OutlookProperties& properties) override {
    outlook_.Operate();
    properties_ = properties;
  }
  void Save() override {
    outlook_.Operate();
    *appointment_ = properties_;
    auto& calendar = *outlook_.calendar_;
    if (std::ranges::find(calendar, appointment_) == calendar.end())
      calendar.push_back(appointment_);
  }
  void Delete() override {
    outlook_.Operate();
    if (std::erase(*outlook_.calendar_, appointment_) > 0)
      outlook_.deleted_->push_back(appointment_);
    else
      std::erase(*outlook_.deleted_, appointment_);
  }

 private:
  OutlookStandIn& outlook_;
  OutlookStandIn::Appointment appointment_;
  OutlookProperties properties_;
};

// Of a folder itself, or of what a filter let pass.
class StandInItems : public OutlookItems {
 public:
  StandInItems(OutlookStandIn& outlook, std::shared_ptr<OutlookStandIn::Folder> folder)
      : outlook_(outlook), folder_(std::move(folder)) {}

  void Sort(std::string_view property) override {
    if (property != "[Start]") throw OutlookFault("Not to be sorted by " + std::string(property));
    sorted_ = true;
  }
  void IncludeRecurrences(bool) override {}
  std::unique_ptr<OutlookItems> Restrict(std::string_view filter) override {
    const Test passes = Filter(filter).Read();
    auto hits = std::make_shared<OutlookStandIn::Folder>();
    std::ranges::copy_if(*folder_, std::back_inserter(*hits),
                         [&](const auto& item) { return passes(*item); });
    if (sorted_) std::ranges::stable_sort(*hits, {}, [](const auto& item) { return item->start; });
    return std::make_unique<StandInItems>(outlook_, std::move(hits));
  }
  int Count() override { return static_cast<int>(folder_->size()); }
  std::unique_ptr<OutlookItem> Item(int number) override {
    if (number < 1 || number > Count()) throw OutlookFault("There is no such item.");
    return std::make_unique<StandInItem>(outlook_,
                                         (*folder_)[static_cast<std::size_t>(number - 1)]);
  }

 private:
  OutlookStandIn& outlook_;
  std::shared_ptr<OutlookStandIn::Folder> folder_;
  bool sorted_ = false;
};

std::unique_ptr<OutlookItems> OutlookStandIn::Items(OutlookFolder folder) {
  return std::make_unique<StandInItems>(*this,
                                        folder == OutlookFolder::Calendar ? calendar_ : deleted_);
}

std::unique_ptr<OutlookItem> OutlookStandIn::CreateItem() {
  return std::make_unique<StandInItem>(*this, std::make_shared<OutlookProperties>());
}

void OutlookStandIn::Add(const OutlookProperties& appointment) {
  calendar_->push_back(std::make_shared<OutlookProperties>(appointment));
}

std::vector<OutlookProperties> OutlookStandIn::PropertiesOf(const Folder& folder) {
  std::vector<OutlookProperties> properties;
  for (const Appointment& appointment : folder) properties.push_back(*appointment);
  return properties;
}

void OutlookStandIn::Operate() {
  if (operationsUntilFault >= 0 && operationsUntilFault-- == 0)
    throw OutlookFault("Outlook has stopped answering.");
}

}  // namespace lm
