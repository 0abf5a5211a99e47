// The empty database files beside the program, from which a first start makes its folder.
#pragma once

#include <string>

#include "platform/status.h"
#include "store/catalogue.h"

namespace karvel {

// Makes an empty file with the catalogue's tables and indexes. An existing file is replaced, whole or not at all.
Status WriteTemplate(const DatabaseFile& file, const std::string& realPath);

}  // namespace karvel
