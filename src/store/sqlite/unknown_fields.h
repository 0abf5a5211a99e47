// What a folder's files hold beyond the catalogue: fields and tables that another program keeps there.
#pragma once

#include <string>
#include <vector>

#include "platform/status.h"

namespace karvel {

// "Cari.mdb/CariKartlar: Not, Renk" for fields, "Cari.mdb/Notlar" for a table. The files must be whole, and are only read.
Status FindUnknownFields(const std::string& folder, std::vector<std::string>& names);

}  // namespace karvel
