// Reads XML piece by piece, and calls back for what a handler is to hear.
#pragma once

#include <expat.h>

#include <functional>
#include <memory>
#include <string_view>

namespace karvel {

// The attributes of an element while its start is heard.
class XmlAttributes {
 public:
  explicit XmlAttributes(const XML_Char** pairs) : pairs_(pairs) {}
  // By its name without the prefix of its namespace; "" where there is none.
  [[nodiscard]] std::string_view Get(std::string_view name) const;

 private:
  const XML_Char** pairs_;
};

class XmlReader {
 public:
  // Element names come without the prefix of their namespace.
  std::function<void(std::string_view, const XmlAttributes&)> started;
  std::function<void(std::string_view)> ended;
  std::function<void(std::string_view)> text;

  XmlReader();
  // False where it is no XML; `last` with the last piece.
  bool Feed(std::string_view piece, bool last);

 private:
  struct Free {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };
  std::unique_ptr<XML_ParserStruct, Free> parser_;
};

}  // namespace karvel
