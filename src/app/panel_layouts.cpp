#include "app/panel_layouts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <functional>
#include <initializer_list>

#include "app/choice_fields.h"
#include "app/element_binding.h"
#include "app/field_name.h"
#include "app/qt_text.h"
#include "app/sizing_boxes.h"
#include "app/text_field.h"
#include "app/touch_button.h"
#include "app/touch_label.h"
#include "text/format.h"

namespace karvel {
namespace {

class Builder {
 public:
  Builder(DeskUi& ui, QWidget* parent) : ui_(ui), parent_(parent) {}

  PanelCard* Card(Element& panel, CardPlace place, const char* title = "", int leastWidth = 0) {
    auto* const card = new PanelCard(ui_, panel, place, parent_);
    card->hide();
    card->SetTitle(title);
    card->SetLeastWidth(leastWidth);
    new ElementBinding(ui_, panel, *card, {.sync = [card] { card->Sync(); }});
    cards_.push_back(card);
    card_ = card;
    grid_ = nullptr;
    return card;
  }

  [[nodiscard]] QWidget* Of(const Element& element) const { return ui_.widgets.value(&element); }
  // A size of the card's that follows the theme's.
  void Follow(const std::function<void()>& size) {
    size();
    card_->Keep(ui_.theme.changed.Connect(size));
  }

  // A field under its name, in the card's grid.
  void Field(int row, int column, const char* name, const Element& element, int span = 1) {
    QGridLayout& grid = Grid();
    QWidget* const widget = Of(element);
    grid.addWidget(new FieldName(ui_, QString::fromUtf8(name), card_), 2 * row, column, 1, span);
    grid.addWidget(widget, 2 * row + 1, column, 1, span);
    if (widget->accessibleName().isEmpty()) widget->setAccessibleName(QString::fromUtf8(name));
  }

  void At(int row, int column, const Element& element, int span = 1) { Grid().addWidget(Of(element), 2 * row + 1, column, 1, span); }

  // A field beside a label that is an element too.
  void Beside(int row, int column, const Element& name, const Element& field, int span = 1) {
    qobject_cast<TouchLabel*>(Of(name))->SetLook(LabelLook::FieldName);
    Follow([name = Of(name), &theme = ui_.theme] { name->setFixedWidth(theme.Px(132)); });
    Grid().addWidget(Of(name), row, column);
    Grid().addWidget(Of(field), row, column + 1, 1, span);
    Of(field)->setAccessibleName(ToQt(name.Caption()).trimmed());
  }

  QLabel* Text(const char* text) {
    auto* const label = new FieldName(ui_, QString::fromUtf8(text), card_, FontRole::Title);
    card_->Content().addWidget(label);
    return label;
  }
  // A text on the card that is written anew when one of these elements changes.
  void Following(QLabel* label, std::initializer_list<Element*> elements, const std::function<QString()>& text) {
    label->setText(text());
    for (Element* element : elements) card_->Keep(element->altered.Connect([label, text] { label->setText(text()); }));
  }
  void Wide(const Element& element, int stretch = 0) { card_->Content().addWidget(Of(element), stretch); }

  QHBoxLayout* Row(std::initializer_list<const Element*> elements) {
    auto* const row = new QHBoxLayout;
    Follow([row, &theme = ui_.theme] { row->setSpacing(theme.Px(8)); });
    for (const Element* element : elements) row->addWidget(Of(*element), 1);
    card_->Content().addLayout(row);
    return row;
  }

  void Primary(const Element& element) { qobject_cast<TouchButton*>(Of(element))->SetLook(ButtonLook::Primary); }
  void Main(const Element& element) { qobject_cast<TouchButton*>(Of(element))->SetLook(ButtonLook::Main); }
  void Amount(const Element& element) {
    if (auto* const field = qobject_cast<TextField*>(Of(element))) field->SetAmount(true);
  }
  void Gap() { card_->Content().addSpacing(ui_.theme.Px(6)); }

  // Between the rows of the card's grid.
  void RowGap(int base) {
    Follow([&grid = Grid(), &theme = ui_.theme, base] {
      grid.setHorizontalSpacing(theme.Px(10));
      grid.setVerticalSpacing(theme.Px(base));
    });
  }

  QGridLayout& Grid() {
    if (!grid_) {
      grid_ = new QGridLayout;
      card_->Content().addLayout(grid_);
      RowGap(4);
    }
    return *grid_;
  }

  std::vector<PanelCard*> Cards() { return cards_; }
  PanelCard* At() { return card_; }

 private:
  DeskUi& ui_;
  QWidget* parent_;
  std::vector<PanelCard*> cards_;
  PanelCard* card_ = nullptr;
  QGridLayout* grid_ = nullptr;
};

void Cards(Builder& build, const Screen& screen) {
  build.Card(screen.CariFrm, CardPlace::OverList, "", 600);
  build.Field(0, 0, "Cari Kodu", screen.CariNew(0));
  build.Field(0, 1, "Ünvan", screen.CariNew(1));
  build.Field(1, 0, "Adres", screen.CariNew(2), 2);
  build.Field(2, 0, "Şehir", screen.CariNew(3));
  build.Field(2, 1, "E-Mail", screen.CariNew(4));
  build.Field(3, 0, "Vergi Dairesi", screen.CariNew(5));
  build.Field(3, 1, "Vergi No", screen.CariNew(6));
  build.Field(4, 0, "Telefon", screen.CariNew(7));
  build.Field(4, 1, "GSM", screen.CariNew(8));
  build.Field(5, 0, "Kart No", screen.CariNew(9));
  build.At(5, 1, screen.CariChk);
  build.Gap();
  build.Primary(screen.CariNewCmd(1));
  build.Row({&screen.CariNewCmd(0), &screen.CariNewCmd(1)});

  build.Card(screen.StokGiris, CardPlace::OverList, "", 560);
  const char* const names[] = {"Stok Kodu", "Stok Adı", "Barkod", "1.Fiyat", "2.Fiyat", "3.Fiyat", "Miktar", "Tutar"};
  for (int i = 0; i < screen.StokNew.Count(); ++i) {
    build.Field(i / 2, i % 2, names[i], screen.StokNew(i));
    if (i > 2) build.Amount(screen.StokNew(i));
  }
  // The new item's code is no barcode, and nothing is sold while the panel is open.
  for (const Element* field : {&screen.StokNew(0), &screen.StokNew(1), &screen.Text1(1)})
    if (auto* const text = qobject_cast<TextField*>(build.Of(*field)))
      text->SetCodesElsewhere([&screen] { return screen.StokGiris.IsShown(); });
  build.Of(screen.StokNewCmd(1))->setToolTip("Ctrl + Enter");
  build.Gap();
  build.Primary(screen.StokNewCmd(1));
  build.Row({&screen.StokNewCmd(0), &screen.StokNewCmd(1)});
}

void Receipt(Builder& build, DeskUi& ui, const Screen& screen) {
  build.Card(screen.StokAl, CardPlace::OverList, "", 620);
  build.RowGap(8);
  build.Beside(0, 0, screen.Label12(0), screen.Text6(0), 3);
  auto* const barcode = new FieldName(ui, "Barkod", build.At(), FontRole::Title);
  barcode->setContentsMargins(16, 0, 0, 0);
  build.Grid().addWidget(barcode, 1, 0);
  build.Grid().addWidget(build.Of(screen.Text6(5)), 1, 1, 1, 3);
  build.Of(screen.Text6(5))->setAccessibleName("Barkod");
  build.Beside(2, 0, screen.Label12(1), screen.Text6(1));
  build.Beside(2, 2, screen.Label12(2), screen.Text6(2));
  build.Beside(3, 0, screen.Label12(3), screen.Text6(3));
  build.Beside(3, 2, screen.Label12(4), screen.Text6(4));
  for (int i = 1; i <= 4; ++i) build.Amount(screen.Text6(i));
  auto* const sum = new FieldName(ui, "Toplam", build.At(), FontRole::Title);
  sum->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  build.Grid().addWidget(sum, 4, 0, 1, 2);
  qobject_cast<TouchLabel*>(build.Of(screen.Label12(5)))->SetLook(LabelLook::Amount);
  build.Grid().addWidget(build.Of(screen.Label12(5)), 4, 2, 1, 2);
  build.Gap();
  build.Primary(screen.StokAlCmd(1));
  build.Row({&screen.StokAlCmd(0), &screen.StokAlCmd(1)});
}

void Money(Builder& build, DeskUi& ui, const Screen& screen) {
  build.Card(screen.TahsilatFrame, CardPlace::OverList, "", 440);
  // What is collected, and how: the amount itself stands beside the list.
  build.Following(build.Text(""), {&screen.Label3, &screen.Text2(2)},
                  [&screen] { return ToQt(screen.Label3.Caption() + "  " + Format(screen.Text2(2).Text(), "Standard")); });
  build.Row({&screen.Command8(0), &screen.Command8(1)});
  build.Row({&screen.Command9, &screen.NakitCmd});
  build.Gap();
  build.Main(screen.Command7(1));
  build.Row({&screen.Command7(0), &screen.Command7(1)});
  build.Of(screen.Command7(0))->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);

  PanelCard* const due = build.Card(screen.Vadefrm, CardPlace::Corner, "", 240);
  due->SetMovable();
  due->setToolTip("Kapatmak için dokunun");
  build.Following(build.Text(""), {&screen.Label15}, [&screen] {
    return screen.Label15.Caption().starts_with("-") ? QStringLiteral("Vadesi gelmedi  ✕") : QStringLiteral("Vadesi geçen  ✕");
  });
  auto* const days = qobject_cast<TouchLabel*>(build.Of(screen.Label15));
  days->SetLook(LabelLook::Amount);
  days->setAttribute(Qt::WA_TransparentForMouseEvents);
  build.Wide(screen.Label15);

  build.Card(screen.Frame4, CardPlace::OverList, "", 440);
  build.Following(build.Text(""), {&screen.List1, &screen.Text2(1)}, [&screen] {
    return QStringLiteral("%1 / %2 okutuldu").arg(screen.List1.Items().size()).arg(ToQt(screen.Text2(1).Text()));
  });
  build.Field(0, 0, "Okutulan seri numarası", screen.Text4);
  build.Wide(screen.List1, 1);
  build.Follow([list = build.Of(screen.List1), &theme = ui.theme] { list->setMinimumHeight(theme.Px(220)); });
  build.Of(screen.List1)->setAccessibleName("Seri numaraları");
}

void Documents(Builder& build, DeskUi& ui, const Screen& screen) {
  build.Card(screen.CariFrame, CardPlace::FillList);
  build.Wide(screen.CariDBGrid, 1);
  build.Primary(screen.CariCmd);
  build.Row({&screen.CariKapat, &screen.CariCmd});

  build.Card(screen.Frame3, CardPlace::OverList, "Yazdır", 420);
  build.Field(0, 0, "Tarih", screen.DTPicker1);
  build.Gap();
  build.Primary(screen.Command5(1));
  for (const Element* choice : {&screen.Command5(1), &screen.Command5(2), &screen.CariHesCmd, &screen.TahsilatCmd, &screen.YazıcıCmd})
    build.Wide(*choice);
  build.Row({&screen.VzgCmd, &screen.Command5(0)});

  build.Card(screen.FatFrame, CardPlace::FillList, "Fatura");
  build.Field(0, 0, "Fatura No", screen.Fat(0));
  build.Field(0, 1, "Tarih", screen.FatDTPicker);
  build.At(0, 2, screen.FatDüzChk, 2);
  build.Field(1, 0, "Ünvan", screen.Fat(1), 2);
  build.Field(1, 2, "E-Mail", screen.Fat(9), 2);
  build.Field(2, 0, "Adres", screen.Fat(2), 2);
  build.Field(2, 2, "Adres 2", screen.Fat(3), 2);
  build.Field(3, 0, "Vergi Dairesi", screen.Fat(4));
  build.Field(3, 1, "Vergi No", screen.Fat(5));
  const std::pair<const char*, int> parts[] = {{"Miktar", 7}, {"Fiyat", 8}, {"Tutar", 6}};
  auto* const cells = new QGridLayout;
  build.Follow([cells, &theme = ui.theme] { cells->setSpacing(theme.Px(4)); });
  int column = 0;
  for (const auto& [name, index] : parts) {
    cells->addWidget(new FieldName(ui, QString::fromUtf8(name), build.At()), 0, column);
    cells->addWidget(build.Of(screen.Fat(index)), 1, column++);
    build.Of(screen.Fat(index))->setAccessibleName(QString::fromUtf8(name));
    qobject_cast<TextField*>(build.Of(screen.Fat(index)))->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
  build.Grid().addLayout(cells, 6, 2, 2, 2);
  for (int i = 0; i < 4; ++i) build.Grid().setColumnStretch(i, 1);
  build.Wide(screen.FatGrid, 1);
  build.Primary(screen.FatCmd(1));
  build.Row({&screen.FatCmd(0), &screen.FatPopCmd, &screen.FatCmd(1)});

  build.Card(screen.StkFrame, CardPlace::OverList, "Stok Seçimi")->SetFrame(ui.screen.stkPlace);
  build.Wide(screen.List2, 1);
  build.Of(screen.List2)->setAccessibleName("Stoklar");
}

void Upkeep(Builder& build, const Screen& screen) {
  build.Card(screen.Frame1, CardPlace::OverDesk, "Yedekle", 380);
  build.Field(0, 0, "Sürücü", screen.Drive1);
  build.Gap();
  build.Primary(screen.Command10(1));
  build.Row({&screen.Command10(0), &screen.Command10(1)});

  PanelCard* const waiting = build.Card(screen.Frame5, CardPlace::OverDesk, "", 460);
  build.Wide(screen.Label16);
  auto* const progress = new QProgressBar(waiting);
  progress->setRange(0, 0);
  progress->setTextVisible(false);
  progress->setAccessibleName("Sürüyor");
  waiting->Content().addWidget(progress);
  build.Wide(screen.DurCmd);

  build.Card(screen.BağlantıFrm, CardPlace::OverDesk, "", 460);
  build.Text("Merkez ile bağlantı yok..!");
  build.Text("Bağlantı bekleyiniz.");
}

}  // namespace

std::vector<PanelCard*> BuildPanels(DeskUi& ui, QWidget* parent) {
  Builder build(ui, parent);
  const Screen& screen = ui.screen;
  Cards(build, screen);
  Receipt(build, ui, screen);
  Money(build, ui, screen);
  Documents(build, ui, screen);
  new SizingBoxes(ui, parent);
  Upkeep(build, screen);
  return build.Cards();
}

}  // namespace karvel
