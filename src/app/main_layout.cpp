#include "app/main_layout.h"

#include <QPainter>
#include <algorithm>

#include "app/element_binding.h"
#include "app/field_name.h"
#include "app/qt_text.h"
#include "app/text_field.h"
#include "app/touch_button.h"
#include "app/touch_label.h"
#include "text/turkish.h"

namespace karvel {
namespace {

// What each figure of the day stands for, by its slot.
struct DayFigure {
  int slot;
  const char* name;
};
constexpr DayFigure kDayFigures[] = {{2, "Satış"}, {3, "Nakit"}, {4, "Kredi Kartı"}, {6, "Çek"}, {8, "Senet"}, {10, "İade"}};

}  // namespace

MainLayout::MainLayout(DeskUi& ui, QWidget* parent) : QWidget(parent), ui_(ui), root_(new QVBoxLayout(this)) {
  title_ = new QLabel(this);
  title_->hide();
  root_->addWidget(title_);
  BuildTop();
  body_ = new QHBoxLayout;
  root_->addLayout(body_, 1);
  BuildLists();
  BuildMoney();
  BuildQuietLine();
}

void MainLayout::BuildTop() {
  const Screen& screen = ui_.screen;
  top_ = new QHBoxLayout;
  root_->addLayout(top_);
  auto* const leads = qobject_cast<TouchLabel*>(Of(screen.Label1(0)));
  leads->SetLook(LabelLook::Action);
  leads->setToolTip("Çift dokunun (F2)");
  top_->addWidget(leads);
  top_->addWidget(Of(screen.Text1(0)), 3);
  top_->addWidget(Of(screen.Picture2(0)));
  top_->addWidget(Of(screen.Picture2(1)));
  ElementBinding::Of(Of(screen.DökNoYaz))->SetPlaced([] { return false; });  // pressed by the desk alone
  auto* const customer = qobject_cast<TouchLabel*>(Of(screen.Label8));
  customer->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  top_->addWidget(customer, 2);
  menuButton_ = new QToolButton(this);
  menuButton_->setObjectName("MenuButton");
  menuButton_->setAccessibleName("Menü");
  menuButton_->setToolTip("Menü (F10)");
  menuButton_->setText("☰");
  menuButton_->setFocusPolicy(Qt::NoFocus);
  top_->addWidget(menuButton_);
}

void MainLayout::BuildLists() {
  const Screen& screen = ui_.screen;
  lists_ = new QVBoxLayout;
  body_->addLayout(lists_, 1);
  filter_ = new QHBoxLayout;
  lists_->addLayout(filter_);
  qobject_cast<QLineEdit*>(Of(screen.Text5))->setPlaceholderText("Süz…");
  filter_->addWidget(Of(screen.Text5), 3);
  filter_->addWidget(Of(screen.ComboCmd));
  filter_->addWidget(Of(screen.GurupCombo), 2);
  filter_->addWidget(Of(screen.StokChk));
  filter_->addWidget(Of(screen.CiroChk));
  filter_->addWidget(Of(screen.SilinenChk));
  BuildStockStrip();
  BuildDayFigures();

  product_ = new QHBoxLayout;
  lists_->addLayout(product_);
  qobject_cast<TouchLabel*>(Of(screen.Label4))->SetLook(LabelLook::Tile);
  Of(screen.Label4)->setToolTip("Çift dokunun (F4)");
  Of(screen.Label1(1))->setToolTip("Çift dokunun (F3)");
  qobject_cast<TouchLabel*>(Of(screen.Label1(1)))->SetLook(LabelLook::FieldName);
  product_->addWidget(Of(screen.Label1(1)));
  product_->addWidget(Of(screen.Text1(1)), 1);
  product_->addWidget(Of(screen.Label11));
  product_->addWidget(Of(screen.Label4));

  lists_->addWidget(Of(screen.CariGrid), 100);
  lists_->addWidget(Of(screen.StokGrid), 55);
  lists_->addWidget(Of(screen.HareketGrid), 45);
  // The customer list lies over the two lists of the sale.
  const auto uncovered = [&screen] { return !screen.CariGrid.IsShown(); };
  for (const Element* under : {static_cast<const Element*>(&screen.HareketGrid), static_cast<const Element*>(&screen.StokGrid)})
    ElementBinding::Of(Of(*under))->SetPlaced(uncovered);
  connections_ += ui_.screen.CariGrid.altered.Connect([this] {
    ElementBinding::Of(Of(ui_.screen.StokGrid))->RefreshShown();
    ElementBinding::Of(Of(ui_.screen.HareketGrid))->RefreshShown();
  });
}

QFrame* MainLayout::InlinePanel(Element& panel) {
  auto* const frame = new QFrame(this);
  frame->setProperty("strip", true);
  new ElementBinding(ui_, panel, *frame, {});
  lists_->addWidget(frame);
  return frame;
}

void MainLayout::BuildStockStrip() {
  const Screen& screen = ui_.screen;
  auto* const row = new QHBoxLayout(InlinePanel(ui_.screen.StokFrm));
  row->setContentsMargins(8, 6, 8, 6);
  qobject_cast<QLineEdit*>(Of(screen.Stoktxt))->setPlaceholderText("Stok ara…");
  row->addWidget(Of(screen.Stoktxt), 3);
  row->addWidget(Of(screen.GrpCombo), 2);
  row->addWidget(Of(screen.StokCek));
}

void MainLayout::BuildDayFigures() {
  const Screen& screen = ui_.screen;
  QFrame* const frame = InlinePanel(ui_.screen.CiroFrm);
  auto* const rows = new QVBoxLayout(frame);
  rows->setContentsMargins(10, 8, 10, 8);
  auto* const figures = new QGridLayout;
  figures->setHorizontalSpacing(10);
  rows->addLayout(figures);
  int place = 0;
  for (const DayFigure& figure : kDayFigures) {
    auto* const amount = qobject_cast<TouchLabel*>(Of(screen.Label9(figure.slot)));
    amount->SetLook(LabelLook::Figure);
    figures->addWidget(new FieldName(ui_, figure.name, frame), 2 * (place / 3), place % 3);
    figures->addWidget(amount, 2 * (place / 3) + 1, place % 3);
    ++place;
  }
  // The slots between them carry no figure of the day.
  for (int slot = 0; slot < screen.Label9.Count(); ++slot)
    if (std::ranges::none_of(kDayFigures, [slot](const DayFigure& figure) { return figure.slot == slot; }))
      ElementBinding::Of(Of(screen.Label9(slot)))->SetPlaced([] { return false; });
  auto* const row = new QHBoxLayout;
  rows->addLayout(row);
  row->addWidget(Of(screen.DTPicker2(0)), 1);
  row->addWidget(Of(screen.DTPicker2(1)), 1);
  row->addWidget(Of(screen.CiroYazCmd), 1);
  row->addWidget(Of(screen.ZRaporu), 1);
}

void MainLayout::BuildMoney() {
  const Screen& screen = ui_.screen;
  moneyColumn_ = new QFrame(this);
  moneyColumn_->setProperty("column", true);
  body_->addWidget(moneyColumn_);
  money_ = new QVBoxLayout(moneyColumn_);

  auto* const balanceName = qobject_cast<TouchLabel*>(Of(screen.Label1(7)));
  balanceName->SetLook(LabelLook::FieldName);
  auto* const balance = qobject_cast<TouchLabel*>(Of(screen.Label5));
  balance->SetLook(LabelLook::BigAmount);
  // On a balance red means that the shop owes; on the sum of a slip it only tells that a line was tapped.
  const auto noteDebt = [balance, &name = screen.Label1(7)] { balance->SetRedNote(Trim(name.Caption()) == "Bakiye" ? "Alacak" : ""); };
  noteDebt();
  connections_ += screen.Label1(7).altered.Connect(noteDebt);
  balance_ = new QBoxLayout(QBoxLayout::TopToBottom);
  money_->addLayout(balance_);
  balance_->addWidget(balanceName);
  balance_->addWidget(balance, 1);

  fields_ = new QGridLayout;
  money_->addLayout(fields_);
  const std::pair<Element*, Element*> rows[] = {{&screen.Label1(2), &screen.Text2(0)},
                                                {&screen.Label1(3), &screen.Text2(1)},
                                                {&screen.Label1(4), &screen.Label2},
                                                {&screen.Label1(6), &screen.Text2(3)},
                                                {&screen.Label1(5), &screen.Text2(2)}};
  int row = 0;
  for (const auto& [name, field] : rows) {
    auto* const label = qobject_cast<TouchLabel*>(Of(*name));
    label->SetLook(LabelLook::FieldName);
    fields_->addWidget(label, row, 0);
    fields_->addWidget(Of(*field), row, 1);
    if (auto* const text = qobject_cast<TextField*>(Of(*field))) text->SetAmount(true);
    ++row;
  }
  qobject_cast<TouchLabel*>(Of(screen.Label2))->SetLook(LabelLook::Amount);
  Of(screen.Label1(2))->setToolTip("Çift dokunun (F6)");
  auto* const means = qobject_cast<TouchLabel*>(Of(screen.Label3));
  means->SetLook(LabelLook::Tile);
  means->setToolTip("Ödeme şekli: dokunun (F7)");
  fields_->addWidget(means, row, 0, 1, 2);
  fields_->setColumnStretch(1, 1);
  money_->addStretch(1);

  commands_ = new QHBoxLayout;
  commands_->addWidget(Of(screen.Command1), 1);
  commands_->addWidget(Of(screen.Command4), 1);
  money_->addLayout(commands_);
  mainCommands_ = new QHBoxLayout;
  qobject_cast<TouchButton*>(Of(screen.Command2))->SetLook(ButtonLook::Main);
  qobject_cast<TouchButton*>(Of(screen.Command2))->SetDeletingCaption("Satır Sil");
  mainCommands_->addWidget(Of(screen.Command3), 2);
  mainCommands_->addWidget(Of(screen.Command2), 3);
  Of(screen.Command3)->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
  Of(screen.Command2)->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  money_->addLayout(mainCommands_);
}

// What it says may be long; the window never grows for it.
void MainLayout::BuildQuietLine() {
  QWidget* const line = Of(ui_.screen.Durum);
  line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  root_->addWidget(line);
}

void MainLayout::ShowTitle(const QString& title, bool shown) {
  title_->setText(title.simplified());
  title_->setVisible(shown);
}

QRect MainLayout::ListArea() const {
  const QRect lists = lists_->geometry();
  const QRect filter = filter_->geometry();
  return {lists.left(), filter.bottom() + lists_->spacing() + 1, lists.width(), lists.bottom() - filter.bottom() - lists_->spacing()};
}

QRect MainLayout::BodyArea() const {
  return body_->geometry();
}

void MainLayout::ApplyTheme(int width) {
  const Theme& theme = ui_.theme;
  const int gap = theme.Tall(8, 4), side = theme.Tall(10, 6);
  root_->setContentsMargins(theme.Px(10), theme.Tall(8, 4), theme.Px(10), theme.Tall(10, 4));
  root_->setSpacing(gap);
  for (QBoxLayout* box :
       std::initializer_list<QBoxLayout*>{top_, body_, filter_, product_, lists_, money_, balance_, commands_, mainCommands_})
    box->setSpacing(gap);
  body_->setSpacing(theme.Px(10));
  fields_->setSpacing(gap);
  money_->setContentsMargins(side, side, side, side);
  // In a low window the figure stands beside its name.
  balance_->setDirection(theme.IsLow() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  fields_->setColumnMinimumWidth(0, theme.Px(112));
  moneyColumn_->setFixedWidth(std::clamp(static_cast<int>(width * 0.29), theme.Wide(318, 300), theme.Px(430)));
  menuButton_->setFixedSize(theme.Px(56), theme.Px(52));
  QFont sign = theme.Font(FontRole::Title);
  sign.setPixelSize(theme.Px(24));
  menuButton_->setFont(sign);
  Of(ui_.screen.Text5)->setMinimumWidth(theme.Wide(130, 96));
  Of(ui_.screen.Label1(0))->setFixedWidth(theme.Px(132));
  Of(ui_.screen.Label1(1))->setFixedWidth(theme.Px(112));
  Of(ui_.screen.Label4)->setFixedWidth(theme.Px(104));
  Of(ui_.screen.ComboCmd)->setFixedWidth(theme.Px(76));
  title_->setFont(theme.Font(FontRole::Small));
}

void MainLayout::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette::kBackground);
}

}  // namespace karvel
