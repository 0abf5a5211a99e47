// A firm's schemas on the server: made from the catalogue where there are none, checked where there are.
#pragma once

#include <string>

#include "store/postgres/connection.h"

namespace karvel::postgres {

// One round trip where all is there. A firm without any schema gets all of them in one transaction, once, however many terminals begin
// together; `patience` is for those, `answers` for the server. A schema, table or column that is missing beside others is Damaged and
// named: an empty one never takes its place. `made` tells whether this call made them. Without `mayMake` a firm without any is Missing.
Status PrepareFirm(Connection& connection, const std::string& firm, bool mayMake, Patience& patience, Patience& answers, bool& made);

}  // namespace karvel::postgres
