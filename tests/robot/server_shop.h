// A firm of its own on the tests' PostgreSQL, for a scenario that is played under network work: what the script says of database files is
// read from the server's rows and written into them, in the files' own form.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "store/catalogue.h"
#include "store/engine.h"

namespace karvel {
class PostgresServer;
}

namespace karvel::test {

class ServerShop {
 public:
  // `folder` takes what is laid out for a statement, `templates` has the empty files. On the server of the whole run where it is given none
  // of its own. Throws where there is no server.
  ServerShop(std::filesystem::path folder, std::filesystem::path templates, std::unique_ptr<PostgresServer> own = nullptr);
  // The firm goes with it.
  ~ServerShop();
  ServerShop(const ServerShop&) = delete;
  ServerShop& operator=(const ServerShop&) = delete;

  // For the settings "Online" and "Firma".
  [[nodiscard]] std::string Address() const;
  [[nodiscard]] const std::string& Firm() const { return firm_; }
  // The folder of the home that stands for the share.
  [[nodiscard]] std::filesystem::path ShareFolder() const;

  // For a server of its own.
  void StopServer();
  void StartServer();

  // The file as it would lie in a data folder now.
  std::filesystem::path LayOut(const std::string& file);
  // What a statement has changed in the file that was laid out last is written into the server's rows, by another terminal.
  void TakeBack();

 private:
  using Rows = std::map<RowKey, Row>;
  [[nodiscard]] std::string DataFolder() const;
  void LayTable(const std::filesystem::path& laid, const Table& table);
  void TakeTable(const Table& table);

  const std::unique_ptr<PostgresServer> own_;  // null: the run's
  PostgresServer& server_;
  const std::filesystem::path folder_, templates_;
  const std::string firm_;
  std::unique_ptr<Engine> engine_;
  const DatabaseFile* file_ = nullptr;  // that was laid out last, and its rows then
  std::filesystem::path laid_;
  std::map<const Table*, Rows> before_;
};

}  // namespace karvel::test
