#include "accounts/line_correction.h"

#include "books/day_book_line.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/captions.h"
#include "desk/quiet_line.h"
#include "desk/unknown_outcome.h"
#include "text/format.h"

namespace karvel {
namespace {
const Steps step("LineCorrection");
}

LineCorrection::LineCorrection(const DeskParts& parts, MainButton& button, PriceSelection& prices)
    : shop_(parts.shop), screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), button_(button), prices_(prices) {
  button.Serve(MainTask::CorrectLine, [this] { Confirm(); });
  connections_ += screen_.Command3.click.Connect([this] {
    if (CorrectionOffered(screen_)) TakeLine();
  });
}

void LineCorrection::TakeLine() {
  form_.EditLineId = cursors_.HareketData.Text("DigerId");
  ShowLine();
  button_.OfferPosting();
  screen_.Text2(0).SetFocus();
}

// The fields begin with the line as it is: the price of the item in front is not its own, and that item's minimum sale price would hold for
// it.
void LineCorrection::ShowLine() {
  const Cursor& day = cursors_.HareketData;
  Cursor& cards = cursors_.StokData;
  if (day.Text("StokKod").empty()) return;  // money has no item
  step("find stock card", cards.FindFirst("StokKod=" + sources::Quoted(day.Text("StokKod"))));
  if (!cards.NoMatch()) screen_.Text1(1).SetText(cards.Text("StokAdi"));
  screen_.Text2(0).SetText(Format(day.Number("Fiyat"), form_.PriceFormat));
  screen_.Text2(1).SetText(PlainNumber(day.Number("Miktar")));
}

void LineCorrection::Confirm() {
  // A quantity of 0 is no correction: the field stands at 0 after every posting.
  if (NumberOrZero(screen_.Text2(1).Text()) == 0) {
    screen_.Text2(1).SetFocus();
    Tell(screen_, "Düzeltilmedi: miktarı yazın");
    return;
  }
  if (!StandOnLine()) {
    ShowTooLate();
    return;
  }
  screen_.Command3.SetEnabled(false);
  const Status corrected = CorrectLine(shop_, ReadCorrection());
  screen_.Command3.SetEnabled(true);
  if (corrected.Kind() == ErrorKind::NoRecord) {
    ShowTooLate();
  } else {
    button_.Try([&] { return ShowBooked(form_, corrected, [this] { ShowCorrected(); }); });
  }
}

bool LineCorrection::StandOnLine() {
  Cursor& day = cursors_.HareketData;
  if (form_.EditLineId.empty()) return false;
  if (day.Text("DigerId") == form_.EditLineId) return true;
  const Muted muted(form_.RepositionGuard, Mute::DayBook);
  step("find line", day.FindFirst("DigerId=" + sources::Quoted(form_.EditLineId)));
  return !day.NoMatch();
}

Correction LineCorrection::ReadCorrection() const {
  const Cursor& day = cursors_.HareketData;
  Correction correction;
  correction.dayBookRow = day.CurrentKey();
  correction.id = form_.EditLineId;
  correction.listedAsCancelled = IsCancelled(day);
  correction.price = ReadNumber(screen_.Text2(0).Text());
  correction.quantity = NumberOrZero(screen_.Text2(1).Text());
  correction.amount = NumberOrZero(screen_.Label2.Caption());
  return correction;
}

void LineCorrection::ShowCorrected() {
  const std::string id = form_.EditLineId;
  {
    const Muted muted(form_.RepositionGuard, Mute::DayBook);
    step("refresh day book", cursors_.HareketData.Refresh());
    step("find line", cursors_.HareketData.FindFirst("DigerId=" + sources::Quoted(id)));
  }
  button_.EndCorrection();
  {
    const Muted muted(form_.RepositionGuard, Mute::Items);
    step("corrected item", cursors_.StokData.FindFirst("StokKod=" + sources::Quoted(cursors_.HareketData.Text("StokKod"))));
  }
  prices_.ShowUnsoldItem();  // nothing more of it is sold
  const Cursor& day = cursors_.HareketData;
  Tell(screen_,
       PlainNumber(day.Number("Miktar")) + " × " + day.Text("StokAd") + " " + Format(day.Number("Tutar"), "Standard") + " düzeltildi");
}

// The line that was taken is no longer in front, or no longer what it was: what stands there now must not be rewritten in its place.
void LineCorrection::ShowTooLate() {
  button_.EndCorrection();
  {
    const Muted muted(form_.RepositionGuard, Mute::DayBook);
    step("refresh day book", cursors_.HareketData.Refresh());
  }
  prices_.ShowUnsoldItem();  // a second tap must not sell what was meant to correct
  Tell(screen_, "Düzeltilmedi: satır başka bir terminalde değişmiş");
}

}  // namespace karvel
