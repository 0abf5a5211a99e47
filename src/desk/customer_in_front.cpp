#include "desk/customer_in_front.h"

#include "books/book_cursor.h"
#include "books/sources.h"
#include "books/steps.h"
#include "books/stored_cards.h"
#include "desk/captions.h"
#include "desk/completion.h"
#include "desk/quiet_line.h"
#include "platform/clerk_message.h"
#include "text/turkish.h"

namespace karvel {
namespace {
const Steps step("CustomerInFront");
}

CustomerInFront::CustomerInFront(const DeskParts& parts, BalanceDisplay& balance, DayTotal& dayTotal, OverdueNotice& overdue)
    : screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      world_(parts.world),
      list_(parts.cursors.CariData),
      balance_(balance),
      dayTotal_(dayTotal),
      overdue_(overdue) {
  connections_ += list_.repositioned.Connect([this] { Followed(); });
}

bool CustomerInFront::IsThere() const {
  return list_.SourceTable() && list_.SourceTable()->name == "CariKartlar" && list_.HasCurrent();
}

bool CustomerInFront::HasName(const std::string& text) const {
  return IsThere() && Trim(Name()) == Trim(text);
}

bool CustomerInFront::ListedBy(const std::string& condition) const {
  return ContainsText(list_.RecordSource(), condition);
}

double CustomerInFront::StoredBalance() const {
  return karvel::StoredBalance(world_.stores, list_);
}

bool CustomerInFront::IsGone() const {
  Cursor card(world_.stores, "customer in front");
  return OpenStoredCustomer(card, list_) == Stored::Gone;
}

void CustomerInFront::Followed() {
  FollowDirection();
  if (form_.RepositionGuard.CustomersStill() || form_.KeyboardOpen) return;
  if (!list_.SourceTable() || list_.SourceTable()->Position("Unvan") < 0) return;  // the list shows stock or the day book
  // A purchase keeps its supplier in the fields, whatever is looked up meanwhile.
  const bool fields = !form_.RepositionGuard.CustomerFieldsStill() && ModeOnScreen(screen_) != LineMode::Purchase;
  if (fields && list_.HasCurrent()) FollowFields();
  step("refresh day book", cursors_.HareketData.Refresh());
  step("refresh ledger", cursors_.CariHarData.Refresh());
  step("refresh due dates", cursors_.VadeData.Refresh());
  if (fields && !AtRest(screen_)) dayTotal_.ShowToday();
  FollowWalkIn();
}

// Only the walk-in customer collects at once.
void CustomerInFront::FollowWalkIn() {
  if (!EqualText(screen_.Text1(0).Text(), sources::kWalkIn)) {
    screen_.Command1.SetCaption(caption::kPrint);
  } else if (!form_.RepositionGuard.CustomerFieldsStill()) {
    screen_.Command1.SetCaption(caption::kCollectAtOnce);
  }
}

// Whatever way led to him, and whatever else keeps still: a supplier is paid, and anyone else pays.
void CustomerInFront::FollowDirection() {
  if (!IsThere()) return;
  const bool wholesaler = EqualText(list_.Text("Gurup"), "Toptan");
  screen_.Label1(5).SetCaption(wholesaler ? caption::kPayment : caption::kCollection);
  // Goods are received from suppliers alone.
  if (!wholesaler && AtRest(screen_) && IsWholesale(screen_)) screen_.Label1(0).SetCaption(caption::kToSale);
}

void CustomerInFront::FollowFields() {
  if (AtRest(screen_)) screen_.Text1(0).SetText(Name());
  if (!screen_.SilinenChk.Checked()) cursors_.HareketData.SetRecordSource(sources::DayBookOf(Code()));
  cursors_.CariHarData.SetRecordSource(sources::LedgerOf(Code()));
  step("due dates", cursors_.VadeData.Open(sources::DueDatesOf(Code())));
  if (AtRest(screen_)) ShowCodeAndBalance();
  overdue_.ShowFor(list_);
}

void CustomerInFront::ShowCompleted() {
  if (screen_.Label8.Caption() != Code()) overdue_.Hide();  // it told of another
  ShowCodeAndBalance();
  FollowWalkIn();
}

void CustomerInFront::ShowCodeAndBalance() {
  balance_.Show(list_.Number("Bakiye"));
  screen_.Label8.SetCaption(Code());
}

void CustomerInFront::Follow() {
  if (list_.HasCurrent()) {
    step("customer in front", list_.MoveTo(list_.CurrentKey()));
    return;
  }
  screen_.Text1(0).SetText("");
  balance_.ShowNobody();
  screen_.Label8.SetCaption("");
  overdue_.Hide();
}

void CustomerInFront::BringInFront(const std::string& code) {
  step("find customer", list_.FindFirst("CariKod=" + sources::Quoted(code)));
}

void CustomerInFront::ReadListAnew(const std::string& code) {
  RefreshList();
  BringInFront(code);
  if (list_.NoMatch()) Follow();
}

void CustomerInFront::StandQuietlyOn(const std::string& code) {
  if (IsThere() && Code() == code) return;
  const Muted muted(form_.RepositionGuard, Mute::Customers);
  BringInFront(code);
}

bool CustomerInFront::BringServed() {
  const std::string name = Trim(screen_.Text1(0).Text());
  return AtRest(screen_) ? BringNamed(name) : HasName(name) || BringCode(form_.CurrentCustomerCode);
}

bool CustomerInFront::BringNamed(const std::string& name) {
  if (HasName(name)) return true;  // the one meant, even if another bears the name too
  if (name.empty()) {
    Tell(screen_, "Müşteri adı yazılı değil");
    return false;
  }
  if (!IsThere() || !NamesCard(name, Name())) return BringOnly("Unvan=" + sources::Quoted(name), name);
  // The beginning of the name in front, unless it is somebody's whole name.
  if (IsBorne("Unvan=" + sources::Quoted(name))) return BringOnly("Unvan=" + sources::Quoted(name), name);
  Follow();
  return true;
}

bool CustomerInFront::BringCardNumber(const std::string& number) {
  return !number.empty() && BringOnly("KartNo=" + sources::Quoted(number), number);
}

bool CustomerInFront::IsBorne(const std::string& criteria) const {
  BookCursor cards(world_.stores, "bearers", "Cari.Mdb", sources::kPayers);
  return cards.FindFirst(criteria).Ok();
}

// Of all customers, whatever list is in front: a name that another list has once more is nobody's.
bool CustomerInFront::BringOnly(const std::string& criteria, const std::string& text) {
  BookCursor cards(world_.stores, "bearers", "Cari.Mdb", sources::kPayers);
  if (const Status found = cards.FindFirst(criteria); !found.Ok()) {
    Tell(screen_, found.Kind() == ErrorKind::NoRecord ? "Böyle bir müşteri yok: " + text : ClerkMessage(found));
    return false;
  }
  const std::string code = cards.Text("CariKod");
  if (cards.FindNext(criteria).Ok()) {
    Tell(screen_, "Birden çok müşteri var, listeden seçin: " + text);
    return false;
  }
  return BringCode(code);
}

bool CustomerInFront::BringCode(const std::string& code) {
  if (IsThere() && Code() == code) return true;
  form_.RepositionGuard.Keep(Mute::Nothing);                        // what a refusal left still is over
  if (!IsThere() && list_.SourceTable() == nullptr) RefreshList();  // the stores were away
  return AtRest(screen_) ? FindInAnyList(code) : BringInSale(code);
}

// The day book of a sale is its customer's already: the line that was tapped in it stays in front.
bool CustomerInFront::BringInSale(const std::string& code) {
  const Muted muted(form_.RepositionGuard, Mute::Customers);
  if (!FindInAnyList(code)) return false;
  step("ledger", cursors_.CariHarData.Open(sources::LedgerOf(code)));
  step("due dates", cursors_.VadeData.Open(sources::DueDatesOf(code)));
  return true;
}

bool CustomerInFront::FindInAnyList(const std::string& code) {
  BringInFront(code);
  if (!list_.NoMatch()) return true;
  for (const std::string& source : {sources::CustomersOfGroup("Toptan"), sources::kNamedCustomers, sources::kAllCustomers}) {
    BookCursor other(world_.stores, "other list", "Cari.Mdb", source);
    if (!other.FindFirst("CariKod=" + sources::Quoted(code)).Ok()) continue;
    ShowListAt(source, other.CurrentKey());
    return true;
  }
  return false;
}

void CustomerInFront::ShowListAt(const std::string& source, RowKey row) {
  ShowList(source);
  const Status there = row == 0 ? Status(ErrorKind::NoRecord, "no row") : list_.MoveTo(row);
  if (!there.Ok()) Follow();
}

void CustomerInFront::RefreshAndFollow() {
  step("refresh customers", list_.Refresh());
}

void CustomerInFront::OpenBooks(const char* dayBookOrder) {
  OpenDayBook(dayBookOrder);
  step("ledger", cursors_.CariHarData.Open(sources::LedgerOf(Code())));
  step("due dates", cursors_.VadeData.Open(sources::DueDatesOf(Code())));
}

void CustomerInFront::OpenDayBook(const char* order) {
  if (screen_.SilinenChk.Checked()) return;  // the deleted lines of all stay in its place
  step("day book", cursors_.HareketData.Open(sources::DayBookOf(Code(), order)));
}

void CustomerInFront::ShowList(const std::string& source) {
  const Muted muted(form_.RepositionGuard, Mute::Customers);
  step("customer list", list_.Open(source));
}

void CustomerInFront::RefreshList() {
  const Muted muted(form_.RepositionGuard, Mute::Customers);
  step("refresh customers", list_.Refresh());
}

void CustomerInFront::LeaveDeleted() {
  step("next customer", list_.MoveNext());
  if (list_.Eof()) step("previous customer", list_.MovePrevious());
  if (!list_.HasCurrent()) Follow();  // the last one's name and balance go with him
}

}  // namespace karvel
