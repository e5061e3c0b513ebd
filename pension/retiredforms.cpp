// Forms C and D, of deputising sessions: C of a provider's month, D of the Forms C that came back
// in a month. Only forms of earlier years are there; none is made any more.
#include "pension/form.h"
#include "records/sessionrules.h"

namespace lm {

constinit const PensionForm kFormC = {
    .letter = "C",
    .name = "Form C",
    .table = &Ledger::fgPensionC,
    .ofPractice = true,
    .sessionType = kTypeOohDeputising,
    .sent = &kSentByPractice,
    .takenUpBy = &kFormD,
    .refusedInList = "in a month a Form D has already been created for",
};

constinit const PensionForm kFormD = {
    .letter = "D",
    .name = "Form D",
    .table = &Ledger::fgPensionD,
    .ofPractice = false,
    .sessionType = kTypeOohDeputising,
    .sent = &kSentToHA,
    .madeOf = &kFormC,
};

}  // namespace lm
