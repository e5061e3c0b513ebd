// The Events page: holidays, courses and the like, those to come or those that are over.
#pragma once

#include "records/eventlist.h"
#include "shell/pages/mainpage.h"

namespace lm {

class EventsPage : public MainPage {
 public:
  explicit EventsPage(frmMain& window);

  TabField tabEvents{&window, "tabEvents", {"All", "Upcoming", "Past"}};
  TextField txtFilterEvents{&window, "txtFilterEvents"};
  Button cmdAddEvent{&window, "cmdAddEvent"};
  Button cmdEditEvent{&window, "cmdEditEvent"};
  Button cmdDeleteEvent{&window, "cmdDeleteEvent"};

 private:
  void AddButtons();
  void AddCommands();
  RowTest ShownOn(int tab) const;

  EventListRules rules_{ledger};
  RecordList& list_;
};

}  // namespace lm
