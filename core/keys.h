// The key texts of the stored files. None of them stands whole anywhere: each is put together when
// it is asked for. A changed key makes every file written before unreadable.
#pragma once

#include <string>
#include <string_view>

namespace lm {

// The key of a table's section, by the table's name, ignoring case: fgOptions has its own, every
// other goes by the data password, or by the default data key while that is empty.
std::string TableKey(std::string_view table, std::string_view password);

std::string HeaderKey();       // of the data file's header, whatever the password
std::string TemplateKey();     // of the document templates
std::string SecurityLogKey();  // of the last-opened record

}  // namespace lm
