// The fields of a form or a query.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace quillbox {

using FormFields = std::multimap<std::string, std::string>;

// The value of a field, the first if it comes several times; empty without one.
std::string FieldOf(const FormFields& fields, const std::string& name);

// The fields of an address's query, decoded. A name ends at the first "=", so that a value may hold
// one as it is.
FormFields QueryFields(std::string_view address);

}  // namespace quillbox
