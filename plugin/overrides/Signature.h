#pragma once

#include <string>
#include <string_view>

namespace velura {

/// A method's type encoding as C types: "void (id, SEL, struct CGRect)". What cannot be read stands as it is, in
/// quotes.
std::string spelledOutSignature(std::string_view encoding);

}  // namespace velura
