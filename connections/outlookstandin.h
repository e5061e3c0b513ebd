// A calendar in memory that behaves as Outlook does, for the command line and for tests.
#pragma once

#include <memory>
#include <vector>

#include "core/outlook.h"

namespace lm {

class OutlookStandIn : public OutlookPort {
 public:
  bool Start() override { return reachable; }
  std::unique_ptr<OutlookItems> Items(OutlookFolder folder) override;
  std::unique_ptr<OutlookItem> CreateItem() override;

  void Add(const OutlookProperties& appointment);
  std::vector<OutlookProperties> Appointments() const { return PropertiesOf(*calendar_); }
  std::vector<OutlookProperties> Deleted() const { return PropertiesOf(*deleted_); }

  bool reachable = true;
  int operationsUntilFault = -1;  // reads, writes, saves and deletions; -1: it never fails

 private:
  friend class StandInItem;
  friend class StandInItems;
  using Appointment = std::shared_ptr<OutlookProperties>;
  using Folder = std::vector<Appointment>;

  static std::vector<OutlookProperties> PropertiesOf(const Folder& folder);
  void Operate();

  std::shared_ptr<Folder> calendar_ = std::make_shared<Folder>();
  std::shared_ptr<Folder> deleted_ = std::make_shared<Folder>();
};

}  // namespace lm
