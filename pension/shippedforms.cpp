#include "pension/shippedforms.h"

namespace lm {

bool PlaceShippedForms(Ledger& ledger) {
  return PlaceShippedFiles(ledger, ShippedForms(), "blank pension forms");
}

}  // namespace lm
