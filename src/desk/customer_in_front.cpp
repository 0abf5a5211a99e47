#include "desk/customer_in_front.h"

#include "books/sources.h"
#include "books/steps.h"
#include "books/stored_cards.h"
#include "desk/captions.h"
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
  if (form_.RepositionGuard.CustomersStill() || form_.KeyboardOpen) return;
  if (!list_.SourceTable() || list_.SourceTable()->Position("Unvan") < 0) return;  // the list shows stock or the day book
  // A purchase keeps its supplier in the fields, whatever is looked up meanwhile.
  const bool fields = !form_.RepositionGuard.CustomerFieldsStill() && ModeOnScreen(screen_) != LineMode::Purchase;
  if (fields && list_.HasCurrent()) FollowFields();
  step("refresh day book", cursors_.HareketData.Refresh());
  step("refresh ledger", cursors_.CariHarData.Refresh());
  step("refresh due dates", cursors_.VadeData.Refresh());
  if (fields && !AtRest(screen_)) dayTotal_.ShowToday();
  if (!EqualText(screen_.Text1(0).Text(), sources::kWalkIn)) {
    screen_.Command1.SetCaption(caption::kPrint);
  } else if (!form_.RepositionGuard.CustomerFieldsStill()) {
    screen_.Command1.SetCaption(caption::kCollectAtOnce);
  }
}

void CustomerInFront::FollowFields() {
  if (AtRest(screen_)) screen_.Text1(0).SetText(Name());
  cursors_.HareketData.SetRecordSource(sources::DayBookOf(Code()));
  cursors_.CariHarData.SetRecordSource(sources::LedgerOf(Code()));
  step("due dates", cursors_.VadeData.Open(sources::DueDatesOf(Code())));
  if (AtRest(screen_)) {
    balance_.Show(list_.Number("Bakiye"));
    screen_.Label8.SetCaption(Code());
  }
  overdue_.ShowFor(list_);
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

bool CustomerInFront::BringNamed(const std::string& name) {
  if (HasName(name)) {
    step("chosen customer", list_.MoveTo(list_.CurrentKey()));
    return true;
  }
  step("find customer", list_.FindFirst("Unvan=" + sources::Quoted(name)));
  return !list_.NoMatch();
}

bool CustomerInFront::FindAnew(const std::string& name) {
  return list_.Refresh().Ok() && list_.FindFirst("Unvan=" + sources::Quoted(name)).Ok();
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
