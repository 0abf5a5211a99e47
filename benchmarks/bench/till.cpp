#include "bench/till.h"

#include <fmt/format.h>

#include <stdexcept>

#include "store/sqlite/sqlite_engine.h"
#include "store/sqlite/templates.h"

namespace karvel::bench {

Till::Till(const std::string& home, std::unique_ptr<Engine> engine) : files_(home) {
  for (const DatabaseFile& file : Catalogue::Files()) {
    const Status made = WriteTemplate(file, fmt::format("{}/{}", files_.ProgramFolder(), file.name));
    if (!made.Ok()) throw std::runtime_error(made.Message());
  }
  if (!engine) engine = MakeSqliteEngine({.programFolder = files_.ProgramFolder(), .vfs = {}});
  stores_ = std::make_unique<Stores>(std::move(engine));
  desk_ = std::make_unique<Desk>(World{clock_, loop_, files_, messages_, settings_, shell_, keyboard_, window_, scanner_, connection_, ftp_,
                                       printer_, barcodes_, archives_, *stores_},
                                 "Velmora Karvel1");
  accounts_ = std::make_unique<Accounts>(*desk_);
  exchange_ = std::make_unique<Exchange>(*desk_);
  documents_ = std::make_unique<Documents>(*desk_, *exchange_);
  keyboard_.elements = &desk_->screen.elements;
  if (!desk_->Load()) throw std::runtime_error(home + ": the desk doesn't start");
  desk_->Activate();
}

Till::~Till() = default;

void Till::StandOn(const std::string& customerCode) {
  Cursor& customers = desk_->cursors.CariData;
  const Status found = customers.FindFirst("CariKod='" + customerCode + "'");
  if (!found.Ok() || customers.NoMatch()) throw std::runtime_error("no customer " + customerCode);
}

void Till::EnterSale(const std::string& customerCode) {
  StandOn(customerCode);
  desk_->screen.Text1(0).SetText(desk_->cursors.CariData.Text("Unvan"));
  desk_->screen.Label1(0).dblClick();
  if (desk_->screen.CariGrid.Visible()) throw std::runtime_error("no sale for " + customerCode);
}

void Till::PickItem(const std::string& stockCode, int quantity) {
  Cursor& cards = desk_->cursors.StokData;
  const Status found = cards.FindFirst("StokKod='" + stockCode + "'");
  if (!found.Ok() || cards.NoMatch()) throw std::runtime_error("no card " + stockCode);
  desk_->screen.StokGrid.TapCell(1);
  desk_->screen.Text2(1).SetText(std::to_string(quantity));
}

void Till::Post() {
  const std::string before = desk_->form.CurrentLineId;
  desk_->screen.Command2.Press();
  if (desk_->form.CurrentLineId == before || !messages_.shown.empty())
    throw std::runtime_error(messages_.shown.empty() ? "nothing was posted" : messages_.shown.back().text);
}

}  // namespace karvel::bench
