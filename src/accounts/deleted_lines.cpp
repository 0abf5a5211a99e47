#include "accounts/deleted_lines.h"

#include <utility>

#include "books/steps.h"
#include "desk/captions.h"

namespace karvel {
namespace {
const Steps step("DeletedLines");
constexpr const char* kDeleted = "Select * From Datam Where Durum='Iptal' Order By Tarih Desc";
}  // namespace

DeletedLines::DeletedLines(const DeskParts& parts, UsePasswords& passwords, MainButton& button, CustomerInFront& customer,
                           BalanceDisplay& figure, GroupList& groups)
    : screen_(parts.screen),
      cursors_(parts.cursors),
      passwords_(passwords),
      button_(button),
      customer_(customer),
      figure_(figure),
      groups_(groups) {
  connections_ += screen_.SilinenChk.click.Connect([this] { Toggled(); });
}

void DeletedLines::Toggled() {
  Screen& screen = screen_;
  if (!screen.SilinenChk.Checked()) {
    Close();
  } else if (AtRest(screen) && passwords_.AdmitToDeletedLines()) {
    Open();
  } else {
    screen.SilinenChk.SetChecked(false);  // also in a sale, whose lines stay in front
  }
}

void DeletedLines::Open() {
  screen_.StokChk.SetChecked(false);
  keptSource_ = cursors_.HareketData.RecordSource();
  cursors_.HareketData.SetRecordSource(kDeleted);
  stockGridShown_ = screen_.StokGrid.Visible();
  screen_.StokGrid.SetVisible(false);
  screen_.HareketGrid.SetVisible(true);
  screen_.CariGrid.SetVisible(false);
  screen_.Vadefrm.SetVisible(false);  // the lines are everybody's
  OpenDesk(false);
  step("deleted lines", cursors_.HareketData.Refresh());
  screen_.HareketGrid.SetFocus();
}

void DeletedLines::Close() {
  if (keptSource_.empty()) return;
  const std::string kept = std::exchange(keptSource_, {});
  const RowKey before = customer_.Key();
  screen_.StokGrid.SetVisible(stockGridShown_);
  screen_.HareketGrid.SetVisible(false);
  screen_.CariGrid.SetVisible(true);  // a group that was chosen meanwhile is shown now
  figure_.ColorForRest();
  OpenDesk(true);
  groups_.ShowKept();
  if (customer_.IsThere()) customer_.Follow();
  if (customer_.Key() == before) step("day book", cursors_.HareketData.Open(kept));
}

void DeletedLines::OpenDesk(bool open) {
  Screen& screen = screen_;
  if (open) {
    button_.FollowAmounts();
  } else {
    button_.Allow(false);
  }
  for (Element* const element : {&screen.StokChk, &screen.Command4, &screen.Command1, &screen.Label1(0), &screen.Text1(0)})
    element->SetEnabled(open);
}

}  // namespace karvel
