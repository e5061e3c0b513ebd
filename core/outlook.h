// Outlook's calendar, by the few operations of its automation object that the program uses. An
// operation that fails throws OutlookFault.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/dates.h"

namespace lm {

class OutlookFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;  // Windows-1252
};

// The properties of an appointment that the program reads and writes.
struct OutlookProperties {
  std::string subject;
  Date start = 0, end = 0;  // local time
  std::string location;
  bool reminderSet = false;
  int sensitivity = 0;  // 0 normal, 1 personal, 2 private, 3 confidential
  int importance = 1;   // 0 low, 1 normal, 2 high
};

class OutlookItem {
 public:
  virtual ~OutlookItem() = default;
  virtual OutlookProperties Read() = 0;
  virtual void Write(const OutlookProperties& properties) = 0;
  virtual void Save() = 0;
  virtual void
  Delete() = 0;  // out of the calendar into the deleted items, and out of those for good
};

class OutlookItems {
 public:
  virtual ~OutlookItems() = default;
  virtual void Sort(std::string_view property) = 0;  // "[Start]"
  virtual void IncludeRecurrences(bool include) = 0;
  // Those that a filter lets pass: [Start] >= "02 Mar 2026 11:59 PM" AND [Subject] = "Work"
  virtual std::unique_ptr<OutlookItems> Restrict(std::string_view filter) = 0;
  virtual int Count() = 0;
  virtual std::unique_ptr<OutlookItem> Item(int number) = 0;  // from 1
};

enum class OutlookFolder { DeletedItems = 3, Calendar = 9 };

class OutlookPort {
 public:
  virtual ~OutlookPort() = default;
  // Starts Outlook and takes its session ("MAPI"). False when it cannot be reached.
  virtual bool Start() = 0;
  virtual std::unique_ptr<OutlookItems> Items(OutlookFolder folder) = 0;  // of a default folder
  virtual std::unique_ptr<OutlookItem> CreateItem() = 0;                  // an appointment
};

}  // namespace lm
