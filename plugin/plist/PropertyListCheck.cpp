#include "plugin/plist/PropertyListCheck.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace velura {

namespace {

/// The first of `bytes` at or after `at` that is no ASCII; eight at a time, since lists are mostly ASCII.
std::size_t skipASCII(std::string_view bytes, std::size_t at) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  std::uint64_t word = 0;
  while (at + sizeof word <= bytes.size()) {
    std::memcpy(&word, bytes.data() + at, sizeof word);
    if ((word & kHighBits) != 0) break;
    at += sizeof word;
  }
  while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80U) ++at;
  return at;
}

struct LeadByte {
  std::size_t length = 0;       // of the whole sequence; 0 for a byte that cannot lead
  unsigned char lowest = 0x80;  // bounds of the second byte: they exclude overlong forms and surrogates
  unsigned char highest = 0xBF;
};

LeadByte leadByte(unsigned char c) {
  if (c >= 0xC2 && c <= 0xDF) return {2};
  if (c == 0xE0) return {3, 0xA0, 0xBF};
  if (c == 0xED) return {3, 0x80, 0x9F};
  if (c >= 0xE1 && c <= 0xEF) return {3};
  if (c == 0xF0) return {4, 0x90, 0xBF};
  if (c >= 0xF1 && c <= 0xF3) return {4};
  if (c == 0xF4) return {4, 0x80, 0x8F};
  return {};
}

/// The length of the sequence that starts at `at`; 0 when it is malformed.
std::size_t sequenceLength(std::string_view bytes, std::size_t at) {
  const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
  const LeadByte lead = leadByte(byte(at));
  if (lead.length == 0 || at + lead.length > bytes.size()) return 0;
  if (byte(at + 1) < lead.lowest || byte(at + 1) > lead.highest) return 0;
  for (std::size_t index = at + 2; index < at + lead.length; ++index) {
    if ((byte(index) & 0xC0U) != 0x80U) return 0;
  }
  return lead.length;
}

}  // namespace

bool isUTF8(std::string_view bytes) {
  std::size_t at = skipASCII(bytes, 0);
  while (at < bytes.size()) {
    const std::size_t length = sequenceLength(bytes, at);
    if (length == 0) return false;
    at = skipASCII(bytes, at + length);
  }
  return true;
}

std::string_view withoutByteOrderMark(std::string_view bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return bytes.starts_with(kMark) ? bytes.substr(kMark.size()) : bytes;
}

ListFormat listFormat(std::string_view bytes) {
  if (bytes.starts_with("bplist")) return ListFormat::kBinary;
  bytes = withoutByteOrderMark(bytes);
  bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
  for (const std::string_view start : {"<?xml", "<!DOCTYPE", "<!--", "<plist"}) {
    if (bytes.starts_with(start)) return ListFormat::kXML;
  }
  return ListFormat::kText;
}

}  // namespace velura
