// The robot's objects keep the order in which their entries were set, so that an answer begins with "ok".
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

namespace karvel {

using Json = nlohmann::ordered_json;

// A request that can't be done; its text is the answer's "error".
class RequestError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The value of a request under a key. Where it is missing or of another type, a RequestError names the key; `preset` stands in for a
// missing one.
std::string TextOf(const Json& request, const char* key);
int NumberOf(const Json& request, const char* key);
int NumberOf(const Json& request, const char* key, int preset);
bool BooleanOf(const Json& request, const char* key);
bool BooleanOf(const Json& request, const char* key, bool preset);

}  // namespace karvel
