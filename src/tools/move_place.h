// Where karvel-move takes a shop from or brings it to, as it is typed: a folder of this machine, or a main machine.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace karvel {

struct MovePlace {
  std::string told;  // as it was typed; "" for the desk's own folder
  bool isServer = false;
  std::string folder;  // of a server as the engine and the desk know it: "\\HOST:PORT;HOST2\MuhasebeData\01"
};

// "postgres://HOST[:PORT][,HOST2[:PORT]][/MuhasebeData][/FIRM]", the firm 01 unless told; anything else without "://" is a folder. Nothing
// where it is neither. User and password have no place in it.
std::optional<MovePlace> ReadMovePlace(const std::string& told);

}  // namespace karvel
