#include "cli/outlookjson.h"

#include <optional>

#include "core/dates.h"
#include "core/text.h"

namespace lm {
namespace {

// What is missing has the value of a new appointment; what is of another kind throws.
OutlookProperties PropertiesOf(const Json& json) {
  OutlookProperties properties;
  const auto text = [&](const char* name) { return FromUtf8(json.value(name, std::string())); };
  const auto time = [&](const char* name) {
    const auto date = CellDateTime(text(name));
    if (!date) throw std::invalid_argument(std::string(name) + " is no time: dd/mm/yyyy hh:nn");
    return *date;
  };
  properties.subject = text("Subject");
  properties.start = time("Start");
  properties.end = time("End");
  properties.location = text("Location");
  properties.reminderSet = json.value("ReminderSet", properties.reminderSet);
  properties.sensitivity = json.value("Sensitivity", properties.sensitivity);
  properties.importance = json.value("Importance", properties.importance);
  return properties;
}

}  // namespace

std::string ReadAppointments(std::string_view text, OutlookStandIn& outlook) {
  try {
    const Json json = Json::parse(text);
    if (!json.is_array()) return "it is no list of appointments";
    for (const Json& appointment : json) outlook.Add(PropertiesOf(appointment));
    return "";
  } catch (const std::exception& fault) {
    return fault.what();
  }
}

Json AppointmentJson(const OutlookProperties& appointment) {
  const auto time = [](Date date) { return CellText(date) + " " + CellTimeText(date); };
  return {{"Subject", Utf8(appointment.subject)},   {"Start", time(appointment.start)},
          {"End", time(appointment.end)},           {"Location", Utf8(appointment.location)},
          {"ReminderSet", appointment.reminderSet}, {"Sensitivity", appointment.sensitivity},
          {"Importance", appointment.importance}};
}

}  // namespace lm
