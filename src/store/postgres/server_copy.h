// A copy of a firm's stores on the server as files of this machine, all of one moment: the server's own snapshot, in a session of its own.
#pragma once

#include <memory>
#include <string>

#include "store/postgres/address.h"
#include "store/store_file_writer.h"
#include "store/stores_copy.h"

namespace karvel::postgres {

// Begins it into a folder that exists and is empty. Busy while another terminal makes one.
Status BeginServerCopy(const Address& address, const StoreFileMaker& makeFile, const std::string& folder,
                       std::unique_ptr<StoresCopy>& copy);

}  // namespace karvel::postgres
