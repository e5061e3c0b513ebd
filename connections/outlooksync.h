// Sessions and Outlook's appointments, each made where it is missing on the other side. A session
// moves by creation only: one whose time is changed is a new one, and its old appointment stays.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "connections/appointments.h"
#include "core/outlook.h"

namespace lm {

struct OutlookRun {
  int appointmentsCreated = 0;
  int appointmentsDeleted = 0;  // from the calendar
  int sessionsCreated = 0;
  std::string errors;  // a line each
  std::string fault;   // what Outlook failed by; "" when it did not
  bool cancelled = false;
};

// At what the work is; false ends it, and what was done stays.
using OutlookProgress = std::function<bool(int percent, const std::string& status)>;

// Outlook has been started. Sessions are made as one change, which leaves out what was done in
// Outlook.
OutlookRun Synchronise(Ledger& ledger, OutlookPort& outlook, const OutlookProgress& progress);

// Deletes all appointments of sessions from the calendar.
OutlookRun Purge(Ledger& ledger, OutlookPort& outlook, const OutlookProgress& progress);

}  // namespace lm
