#include "plugin/overrides/Signature.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace velura {
namespace {

struct TypeName {
  char letter;
  std::string_view name;
};
constexpr auto kTypeNames = std::to_array<TypeName>({
    {'@', "id"},        {'#', "Class"},
    {':', "SEL"},       {'v', "void"},
    {'c', "char"},      {'C', "unsigned char"},
    {'s', "short"},     {'S', "unsigned short"},
    {'i', "int"},       {'I', "unsigned"},
    {'l', "long"},      {'L', "unsigned long"},
    {'q', "long long"}, {'Q', "unsigned long long"},
    {'f', "float"},     {'d', "double"},
    {'B', "bool"},      {'*', "char *"},
    {'?', "?"},
});

constexpr int kDeepest = 16;

char take(std::string_view& text) {
  const char letter = text.front();
  text.remove_prefix(1);
  return letter;
}

void skip(std::string_view& text, std::string_view letters) {
  text.remove_prefix(std::min(text.find_first_not_of(letters), text.size()));
}

std::optional<std::string> takeType(std::string_view& text, int depth);

/// The rest of "{CGRect={CGPoint=dd}{CGSize=dd}}" after its first brace: the struct's name, or its fields where it has
/// none.
std::optional<std::string> takeStruct(std::string_view& text, int depth) {
  const auto end = text.find_first_of("=}");
  if (end == std::string_view::npos) return std::nullopt;
  const std::string name(text.substr(0, end));
  text.remove_prefix(end);
  std::string fields;
  if (take(text) == '=') {
    while (!text.empty() && text.front() != '}') {
      const auto field = takeType(text, depth + 1);
      if (!field) return std::nullopt;
      fields.append(" ").append(*field).append(";");
    }
    if (text.empty()) return std::nullopt;
    take(text);
  }
  const bool isNamed = !name.empty() && name != "?";
  return isNamed ? "struct " + name : "struct {" + fields + " }";
}

/// What may follow the letter of an object: "?" for a block, and the name of its class in quotes.
void skipObjectDetail(std::string_view& text) {
  if (text.starts_with('?')) take(text);
  if (!text.starts_with('"')) return;
  const auto end = text.find('"', 1);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
}

std::optional<std::string> takeType(std::string_view& text, int depth) {
  skip(text, "rnNoORVA");
  if (text.empty() || depth > kDeepest) return std::nullopt;
  const char letter = take(text);
  if (letter == '^') {
    const auto target = takeType(text, depth + 1);
    return target ? std::optional(*target + " *") : std::nullopt;
  }
  if (letter == '{') return takeStruct(text, depth);
  if (letter == '@') skipObjectDetail(text);
  const auto* const found = std::ranges::find(kTypeNames, letter, &TypeName::letter);
  return found == kTypeNames.end() ? std::nullopt : std::optional(std::string(found->name));
}

/// The result and the arguments, in their order; nothing for an encoding that cannot be read.
std::optional<std::vector<std::string>> typesOf(std::string_view encoding) {
  std::vector<std::string> types;
  while (!encoding.empty()) {
    auto type = takeType(encoding, 0);
    if (!type) return std::nullopt;
    types.push_back(std::move(*type));
    skip(encoding, "+-0123456789");
  }
  return types;
}

}  // namespace

std::string spelledOutSignature(std::string_view encoding) {
  const auto types = typesOf(encoding);
  if (!types || types->empty()) return std::string("\"").append(encoding).append("\"");
  std::string text = types->front() + " (";
  for (std::size_t i = 1; i < types->size(); ++i) text += (i > 1 ? ", " : "") + (*types)[i];
  return text + ')';
}

}  // namespace velura
