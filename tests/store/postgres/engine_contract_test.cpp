#include "tests/store/engine_contract.h"

#include "tests/store/engine_contract_actions.h"
#include "tests/store/engine_contract_copies.h"
#include "tests/store/engine_contract_edits.h"
#include "tests/store/engine_contract_moves.h"
#include "tests/store/postgres/postgres_kind.h"

namespace karvel::testing {

INSTANTIATE_TEST_SUITE_P(Postgres, EngineContract,
                         ::testing::Values([]() -> std::unique_ptr<EngineKind> { return std::make_unique<PostgresKind>(); }),
                         [](const auto&) { return std::string("engine"); });

}  // namespace karvel::testing
