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

bool CustomerInFront::ListsWholesalers() const {
  return ListedBy("Gurup='Toptan");
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
  // Goods are received from suppliers alone, and from their list a double tap leads back to the customers.
  if (!AtRest(screen_)) return;
  if (ListsWholesalers()) {
    screen_.Label1(0).SetCaption(caption::kWholesale);
  } else if (!wholesaler && IsWholesale(screen_)) {
    screen_.Label1(0).SetCaption(caption::kToSale);
  }
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

void CustomerInFront::FollowBalance() {
  const bool named = IsThere() && screen_.Label8.Caption() == Code();
  if (AtRest(screen_) && named && balance_.NamesBalance()) balance_.Show(list_.Number("Bakiye"));
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
  if (AtRest(screen_)) return BringNamed(name) == Brought::InFront;
  return HasName(name) || BringCode(form_.CurrentCustomerCode) == Brought::InFront;
}

Brought CustomerInFront::BringNamed(const std::string& name) {
  if (HasName(name)) return Brought::InFront;  // the one meant, even if another bears the name too
  if (name.empty()) {
    Tell(screen_, "Müşteri adı yazılı değil");
    return Brought::Refused;
  }
  Bearer bearer = LookUp("Unvan=" + sources::Quoted(name));
  if (bearer.found.Kind() == ErrorKind::NoRecord) {
    // The beginning of the name in front, which is nobody's whole name.
    if (IsThere() && NamesCard(name, Name())) {
      Follow();
      return Brought::InFront;
    }
    bearer = LookUp("Unvan Like " + sources::Quoted(AnyKindOfI(name)));
  }
  return Bring(bearer, name);
}

Brought CustomerInFront::BringCardNumber(const std::string& number) {
  return number.empty() ? Brought::Nobody : Bring(LookUp("KartNo=" + sources::Quoted(number)), number);
}

// Of all customers, whatever list is in front: a name that another list has once more is nobody's.
CustomerInFront::Bearer CustomerInFront::LookUp(const std::string& criteria) const {
  BookCursor cards(world_.stores, "bearers", "Cari.Mdb", sources::kPayers);
  Bearer bearer;
  bearer.found = cards.FindFirst(criteria);
  if (!bearer.found.Ok()) return bearer;
  bearer.code = cards.Text("CariKod");
  const Status another = cards.FindNext(criteria);
  bearer.several = another.Ok();
  if (!another.Ok() && another.Kind() != ErrorKind::NoRecord) bearer.found = another;
  return bearer;
}

Brought CustomerInFront::Bring(const Bearer& bearer, const std::string& text) {
  if (bearer.found.Kind() == ErrorKind::NoRecord) {
    Tell(screen_, "Böyle bir müşteri yok: " + text);
    return Brought::Nobody;
  }
  if (!bearer.found.Ok() || bearer.several) {
    Tell(screen_, bearer.several ? "Birden çok müşteri var, listeden seçin: " + text : ClerkMessage(bearer.found));
    return Brought::Refused;
  }
  return BringCode(bearer.code);
}

Brought CustomerInFront::BringCode(const std::string& code) {
  if (IsThere() && Code() == code) return Brought::InFront;
  form_.RepositionGuard.Keep(Mute::Nothing);                        // what a refusal left still is over
  if (!IsThere() && list_.SourceTable() == nullptr) RefreshList();  // the stores were away
  const Status found = AtRest(screen_) ? FindInAnyList(code) : BringInSale(code);
  if (found.Ok()) return Brought::InFront;
  const bool gone = found.Kind() == ErrorKind::NoRecord;
  Tell(screen_, gone ? "Müşterinin kartı yok: " + Trim(screen_.Text1(0).Text()) : ClerkMessage(found));
  return gone ? Brought::Nobody : Brought::Refused;
}

// The day book of a sale is its customer's already: the line that was tapped in it stays in front.
Status CustomerInFront::BringInSale(const std::string& code) {
  const Muted muted(form_.RepositionGuard, Mute::Customers);
  if (Status found = FindInAnyList(code); !found.Ok()) return found;
  step("ledger", cursors_.CariHarData.Open(sources::LedgerOf(code)));
  step("due dates", cursors_.VadeData.Open(sources::DueDatesOf(code)));
  return {};
}

Status CustomerInFront::FindInAnyList(const std::string& code) {
  const std::string criteria = "CariKod=" + sources::Quoted(code);
  Status found = list_.FindFirst(criteria);
  for (const std::string& source : {sources::CustomersOfGroup("Toptan"), sources::kNamedCustomers, sources::kAllCustomers}) {
    if (found.Kind() != ErrorKind::NoRecord) return found;
    BookCursor other(world_.stores, "other list", "Cari.Mdb", source);
    found = other.FindFirst(criteria);
    if (!found.Ok()) continue;
    ShowListAt(source, other.CurrentKey());
    listedGroup(ListsWholesalers() ? "Toptan" : "");
  }
  return found;
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
