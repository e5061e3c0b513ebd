// The stand-in for Outlook's calendar as JSON: a list of {"Subject","Start","End","Location",
// "ReminderSet","Sensitivity","Importance"}, times as "dd/mm/yyyy hh:nn".
#pragma once

#include <string>
#include <string_view>

#include "cli/terminal.h"
#include "connections/outlookstandin.h"

namespace lm {

// Fills the calendar; what is wrong with the list, or "".
std::string ReadAppointments(std::string_view json, OutlookStandIn& outlook);
Json AppointmentJson(const OutlookProperties& appointment);

}  // namespace lm
