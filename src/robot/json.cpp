#include "robot/json.h"

#include <fmt/format.h>

#include <limits>

namespace karvel {
namespace {

const Json& Entry(const Json& request, const char* key) {
  const auto found = request.find(key);
  if (found == request.end()) throw RequestError(fmt::format("the request lacks \"{}\"", key));
  return *found;
}

}  // namespace

std::string TextOf(const Json& request, const char* key) {
  const Json& entry = Entry(request, key);
  if (!entry.is_string()) throw RequestError(fmt::format("\"{}\" is not a text", key));
  return entry.get<std::string>();
}

int NumberOf(const Json& request, const char* key) {
  const Json& entry = Entry(request, key);
  if (!entry.is_number_integer()) throw RequestError(fmt::format("\"{}\" is not a whole number", key));
  const auto number = entry.get<std::int64_t>();
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max() ||
      (entry.is_number_unsigned() && entry.get<std::uint64_t>() > std::numeric_limits<int>::max()))
    throw RequestError(fmt::format("\"{}\" is out of range", key));
  return static_cast<int>(number);
}

int NumberOf(const Json& request, const char* key, int preset) {
  return request.contains(key) ? NumberOf(request, key) : preset;
}

bool BooleanOf(const Json& request, const char* key) {
  const Json& entry = Entry(request, key);
  if (!entry.is_boolean()) throw RequestError(fmt::format("\"{}\" is neither true nor false", key));
  return entry.get<bool>();
}

bool BooleanOf(const Json& request, const char* key, bool preset) {
  return request.contains(key) ? BooleanOf(request, key) : preset;
}

}  // namespace karvel
