#include "exchange/spreadsheet/xml_reader.h"

namespace karvel {
namespace {

std::string_view WithoutPrefix(std::string_view name) {
  const auto colon = name.rfind(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

XmlReader& Of(void* reader) {
  return *static_cast<XmlReader*>(reader);
}

void Started(void* reader, const XML_Char* name, const XML_Char** attributes) {
  if (Of(reader).started) Of(reader).started(WithoutPrefix(name), XmlAttributes(attributes));
}

void Ended(void* reader, const XML_Char* name) {
  if (Of(reader).ended) Of(reader).ended(WithoutPrefix(name));
}

void Text(void* reader, const XML_Char* letters, int count) {
  if (Of(reader).text) Of(reader).text({letters, static_cast<std::size_t>(count)});
}

}  // namespace

std::string_view XmlAttributes::Get(std::string_view name) const {
  for (const XML_Char** pair = pairs_; *pair != nullptr; pair += 2)
    if (WithoutPrefix(pair[0]) == name) return pair[1];
  return {};
}

XmlReader::XmlReader() : parser_(XML_ParserCreate(nullptr)) {
  XML_SetUserData(parser_.get(), this);
  XML_SetElementHandler(parser_.get(), Started, Ended);
  XML_SetCharacterDataHandler(parser_.get(), Text);
}

bool XmlReader::Feed(std::string_view piece, bool last) {
  return XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), last ? 1 : 0) != XML_STATUS_ERROR;
}

}  // namespace karvel
