#include "accounts/deleted_lines.h"

#include "desk/steps.h"

namespace karvel {
namespace {
const Steps step("DeletedLines");
constexpr const char* kDeleted = "Select * From Datam Where Durum='Iptal' Order By Tarih Desc";
}  // namespace

DeletedLines::DeletedLines(const DeskParts& parts, UsePasswords& passwords) : parts_(parts), passwords_(passwords) {
  parts_.screen.SilinenChk.click.Connect([this] { Toggled(); });
}

void DeletedLines::Toggled() {
  Screen& screen = parts_.screen;
  if (!screen.SilinenChk.Checked()) {
    Close();
  } else if (screen.CariGrid.Visible() && passwords_.AdmitToDeletedLines()) {
    Open();
  } else {
    screen.SilinenChk.SetChecked(false);  // also in a sale, whose lines stay in front
  }
}

void DeletedLines::Open() {
  auto& [screen, form, cursors, settings, world] = parts_;
  screen.StokChk.SetChecked(false);
  keptSource_ = cursors.HareketData.RecordSource();
  cursors.HareketData.SetRecordSource(kDeleted);
  stockGridShown_ = screen.StokGrid.Visible();
  screen.StokGrid.SetVisible(false);
  screen.HareketGrid.SetVisible(true);
  screen.CariGrid.SetVisible(false);
  screen.Vadefrm.SetVisible(false);  // the lines are everybody's
  OpenDesk(false);
  step("deleted lines", cursors.HareketData.Refresh());
  screen.HareketGrid.SetFocus();
}

void DeletedLines::Close() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (keptSource_.empty()) return;
  screen.StokGrid.SetVisible(stockGridShown_);
  screen.HareketGrid.SetVisible(false);
  screen.CariGrid.SetVisible(true);
  screen.Label5.SetColor(color::kWhite);
  OpenDesk(true);
  if (cursors.CariData.HasCurrent()) step("customer in front", cursors.CariData.MoveTo(cursors.CariData.CurrentKey()));
  step("day book", cursors.HareketData.Open(keptSource_));
  keptSource_.clear();
}

void DeletedLines::OpenDesk(bool open) {
  Screen& screen = parts_.screen;
  for (Element* const element : {&screen.StokChk, &screen.Command2, &screen.Command4, &screen.Label1(0), &screen.Text1(0)})
    element->SetEnabled(open);
}

}  // namespace karvel
