#include "documents/turnover_panel.h"

#include <vector>

#include "books/card_balance.h"
#include "books/day_sums.h"
#include "books/sources.h"
#include "books/steps.h"
#include "desk/booking_panels.h"
#include "desk/captions.h"
#include "desk/list_columns.h"
#include "desk/quiet_line.h"
#include "desk/refresh.h"
#include "documents/z_report.h"
#include "platform/clerk_message.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("TurnoverPanel");
constexpr int kRightButton = 2;

struct Figure {
  const char* kind;  // Durum
  int slot;          // of Label9
  bool collected;
};
constexpr Figure kFigures[] = {{"Satış", 2, false}, {"Nakit", 3, true}, {"K.Kartı", 4, true},
                               {"Senet", 8, true},  {"Çek", 6, true},   {"İade", 10, false}};

std::vector<GridColumn> TurnoverColumns(const FormState& form) {
  const std::string& money = form.PriceFormat;
  return {{"Ünvan", "CariAd"},
          {"Stok Adı", "StokAd"},
          {"Tahsilat", "Tahsilat", true, Align::Right, money},
          {"Tutar", "Tutar", true, Align::Right, money},
          {"Durum", "Durum"}};
}

}  // namespace

TurnoverPanel::TurnoverPanel(const DeskParts& parts, MainButton& button, CustomerInFront& customer, OverdueNotice& overdue,
                             GroupList& groups)
    : screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      settings_(parts.settings),
      world_(parts.world),
      button_(button),
      customer_(customer),
      overdue_(overdue),
      groups_(groups) {
  Screen& screen = screen_;
  connections_ += screen.CiroChk.click.Connect([this] { Toggled(); });
  for (int i = 0; i < screen.DTPicker2.Count(); ++i) connections_ += screen.DTPicker2(i).changed.Connect([this] { DateChanged(); });
  connections_ += screen.GurupCombo.click.Connect([this] { GroupChosen(); });
  for (int i = 0; i < screen.CiroYaz.Count(); ++i) connections_ += screen.CiroYaz(i).click.Connect([this, i] { ChooseReport(i); });
  connections_ += screen.CiroYazCmd.click.Connect([&screen] { screen.Command1.Press(); });
  connections_ += screen.CiroYazCmd.mouseDown.Connect([&screen](const MouseEvent& event) {
    if (event.button == kRightButton) screen.popUp(screen.PopSip);
  });
}

void TurnoverPanel::Toggled() {
  if (screen_.CiroChk.Checked() == open_) return;
  if (open_) {
    Close();
  } else if (AtRest(screen_)) {
    screen_.StokChk.SetChecked(false);
    Open();
  } else {
    screen_.CiroChk.SetChecked(false);  // a sale needs its customer's row
  }
}

void TurnoverPanel::Open() {
  open_ = true;
  CloseBookingPanels(screen_);
  overdue_.Hide();  // it speaks of a customer
  screen_.CiroFrm.SetVisible(true);
  screen_.CiroFrm.BringToFront();
  OpenDesk(false);
  screen_.Command1.SetCaption(caption::kPrint);  // nobody is in front who could collect
  opening_ = true;
  for (int i = 0; i < screen_.DTPicker2.Count(); ++i) screen_.DTPicker2(i).SetDate(world_.clock.Now().Date());
  opening_ = false;
  dates_ = form_.CriteriaText = "Tarih>=#" + Format(screen_.DTPicker1.Date(), "mm/dd/yyyy") + "#";
  {
    const Muted muted(form_.RepositionGuard, Mute::Customers);
    cursors_.CariData.Close();
    screen_.CariGrid.SetColumns(TurnoverColumns(form_));
    cursors_.CariData.SetDatabaseName(PathIn(form_.DataDir, "Karvel.Mdb"));
    screen_.CariGrid.columnsSwitched();
  }
  ShowList();
  ShowFigures("Tahsilat");
}

void TurnoverPanel::Close() {
  open_ = false;
  screen_.CiroFrm.SetVisible(false);
  {
    const Muted muted(form_.RepositionGuard, Mute::Customers);
    cursors_.CariData.Close();
    ShowCustomers();
  }
  OpenDesk(true);
  groups_.ShowKept();  // a group that was chosen meanwhile
  // Text1(0), the balance and the day book are those of the customer in front.
  step("first customer", cursors_.CariData.MoveFirst());
  if (ChosenGroup().empty()) Tell(screen_, "Listede Müşteri gurubu var");  // whatever the box of groups reads
  if (!customer_.IsThere()) customer_.Follow();
}

void TurnoverPanel::ShowCustomers() {
  const std::string group = ChosenGroup();
  screen_.CariGrid.SetColumns(CustomerColumns(form_));
  cursors_.CariData.SetDatabaseName(PathIn(form_.DataDir, "Cari.Mdb"));
  cursors_.CariData.SetRecordSource(sources::CustomersOfGroup(group.empty() ? "Müşteri" : group));
  screen_.CariGrid.columnsSwitched();
  step("customers", VeriTazele(cursors_.CariData, world_.loop));
}

void TurnoverPanel::OpenDesk(bool open) {
  Screen& screen = screen_;
  if (open) {
    button_.FollowAmounts();
  } else {
    button_.Allow(false);
  }
  for (Element* const element : {&screen.Command4, &screen.CarSil, &screen.SilinenChk, &screen.Text1(0), &screen.Text5})
    element->SetEnabled(open);
}

void TurnoverPanel::ShowList() {
  const Muted muted(form_.RepositionGuard, Mute::Customers);
  const std::string group = ChosenGroup();
  const std::string of = group.empty() ? "Gurup<>'Toptan'" : "Gurup=" + sources::Quoted(group);
  cursors_.CariData.SetRecordSource("Select * From Datam Where " + of + " And " + dates_ + " Order By Durum Asc");
  step("day book", VeriTazele(cursors_.CariData, world_.loop));
}

void TurnoverPanel::ShowFigures(const std::string& collectedField) {
  const std::string wholesale = FoldKey("Toptan");
  for (const Figure& figure : kFigures) {
    const std::string field = figure.collected ? collectedField : "Tutar";
    // By groups, for to compare the group of each line would take longer than to sum it.
    std::vector<TextSum> sums;
    const Status read = world_.stores.QuerySumsBy(
        "Karvel.Mdb", "Select sum(" + field + ") FROM Datam Where Durum='" + figure.kind + "' And " + dates_, "Gurup", sums);
    std::erase_if(sums, [&wholesale](const TextSum& sum) { return FoldKey(sum.text) == wholesale; });
    double sum = 0;
    for (const TextSum& group : sums) sum = WithoutDust(sum + group.sum);
    // Without a line of its kind a figure is blank.
    screen_.Label9(figure.slot).SetCaption(!read.Ok() ? kUnreadFigure : sums.empty() ? "" : Format(sum, form_.PriceFormat));
    if (read.Ok()) continue;
    step("sum", read);
    Tell(screen_, ReadingMessage(read));
  }
}

void TurnoverPanel::DateChanged() {
  if (!open_ || opening_) return;
  Element &from = screen_.DTPicker2(0), &until = screen_.DTPicker2(1);
  if (until.Date() < from.Date()) {
    from.SetDate(until.Date());  // which comes here again
    return;
  }
  dates_ = form_.CriteriaText = FromDay(from.Date()) + " And " + UntilDay(until.Date());
  ShowFigures("Tutar");
  ShowList();
}

void TurnoverPanel::GroupChosen() {
  if (open_ && ListsCustomerGroups(screen_)) ShowList();
}

std::string TurnoverPanel::ChosenGroup() const {
  const bool chosen = ListsCustomerGroups(screen_) && screen_.GurupCombo.ListIndex() > 0;
  return chosen ? screen_.GurupCombo.Text() : "";
}

void TurnoverPanel::ChooseReport(int index) {
  for (int i = 0; i < screen_.CiroYaz.Count(); ++i) screen_.CiroYaz(i).SetChecked(i == index);
  screen_.CiroYazCmd.SetCaption(screen_.CiroYaz(index).Caption());
  settings_.SaveNumber(Setting::TurnoverChoice, index);
}

}  // namespace karvel
