// On which papers a locked session stands, and the way to them.
#pragma once

#include <string>

#include "core/ledger.h"

namespace lm {

// "On INV-00002 and Form A"; "" for a session that is not locked and for what is no session.
std::string SessionLockText(const Ledger& ledger, int row);

// Opens the invoice of a locked session, or the form that it stands on when it is on none. Where
// that is gone the session itself opens, whose links tell so. Nothing for one that is not locked.
void OpenSessionLock(Ledger& ledger, int row);

}  // namespace lm
