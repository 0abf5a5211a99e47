// Both ways to work behind one engine: a folder of this machine by its own files, a share ("\\…") by the main machine's server. The last
// Open chose. The scratch file is this terminal's own either way.
#pragma once

#include <memory>

#include "store/engine.h"

namespace karvel {

// `files` opens folders, `server` shares; `scratch` holds DataTemp.Mdb alone, and opens with any folder. None has anything open yet.
std::unique_ptr<Engine> MakeEngineOfPlace(std::unique_ptr<Engine> files, std::unique_ptr<Engine> server, std::unique_ptr<Engine> scratch);

}  // namespace karvel
