#include "documents/shippedtemplates.h"

namespace lm {

bool PlaceShippedTemplates(Ledger& ledger) {
  return PlaceShippedFiles(ledger, ShippedTemplates(), "invoice templates");
}

}  // namespace lm
