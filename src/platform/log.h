// Where a failed step is noted. The desk shows nothing of it to the clerk; support reads it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace karvel {

// Writes one line to the log. Safe from any thread; does nothing until a sink is set.
void Log(std::string_view line);
// Sets where lines go; an empty function drops them. Returns the sink before it. `place` is the file that the lines go to, if they go to
// one.
std::function<void(std::string_view)> SetLogSink(std::function<void(std::string_view)> sink, std::string place = "");
// The file with the log, for the clerk who is to show it to somebody; "" where there is none.
std::string LogPlace();

}  // namespace karvel
