#include "plugin/plist/PropertyListReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <string>

#include "cocoa/Exception.h"
#include "plugin/plist/PropertyListCheck.h"

namespace velura {

using namespace cocoa;

namespace {

class FileDescriptor {
 public:
  /// Opened without blocking, because the path may name a pipe that nobody writes to.
  explicit FileDescriptor(const char* path) : number_(::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (number_ >= 0) ::close(number_);
  }

  /// The size of a regular file that is small enough to read.
  [[nodiscard]] std::optional<std::size_t> readableSize() const {
    struct stat status {};
    if (number_ < 0 || ::fstat(number_, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    const auto size = static_cast<std::size_t>(status.st_size);
    return size <= kLargestPropertyList ? std::optional(size) : std::nullopt;
  }
  /// Fills `buffer`; answers how many bytes there were. A file that shrinks meanwhile gives fewer.
  [[nodiscard]] std::size_t read(std::string& buffer) const {
    std::size_t filled = 0;
    while (filled < buffer.size()) {
      const ssize_t got = ::read(number_, buffer.data() + filled, buffer.size() - filled);
      if (got <= 0) break;
      filled += static_cast<std::size_t>(got);
    }
    return filled;
  }

 private:
  int number_;
};

std::optional<std::string> contentsOf(const char* path) {
  const FileDescriptor file(path);
  const auto size = file.readableSize();
  if (!size) return std::nullopt;
  std::string bytes(*size, '\0');
  bytes.resize(file.read(bytes));
  return bytes;
}

Ref<NSObject> parsedByFoundation(std::string_view bytes, PropertyListOptions options) {
  Ref<NSObject> list;
  const AutoreleasePool pool;  // parsing leaves a multiple of the list's size behind
  const auto raised = guarded([&] {
    const NSData data = NSData::dataWithBytes(bytes.data(), bytes.size());
    NSUInteger format = 0;
    list = NSPropertyListSerialization::propertyListWithData(data, static_cast<NSUInteger>(options), &format, nullptr);
  });
  return raised ? Ref<NSObject>() : list;
}

/// Foundation is given a declaration of our own and the root element, nothing else of the file.
Ref<NSObject> parsedXML(std::string_view root, PropertyListOptions options) {
  std::string document(R"(<?xml version="1.0" encoding="UTF-8"?>)");
  document += root;
  return parsedByFoundation(document, options);
}

}  // namespace

Ref<NSObject> parsePropertyList(std::string_view bytes, PropertyListOptions options) {
  if (bytes.size() > kLargestPropertyList) return {};
  switch (listFormat(bytes)) {
    case ListFormat::kBinary:
      return isSoundBinaryList(bytes) ? parsedByFoundation(bytes, options) : Ref<NSObject>();
    case ListFormat::kXML:
      if (const auto root = soundXMLList(bytes)) return parsedXML(*root, options);
      return {};
    case ListFormat::kText:
      if (const auto text = soundTextList(bytes)) return parsedByFoundation(*text, options);
      return {};
  }
  return {};
}

Ref<NSObject> readPropertyList(const char* path, PropertyListOptions options) {
  const auto bytes = contentsOf(path);
  return bytes ? parsePropertyList(*bytes, options) : Ref<NSObject>();
}

}  // namespace velura
