#include "app/choice_fields.h"

#include <QCalendarWidget>
#include <QListView>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <tuple>
#include <utility>

#include "app/qt_text.h"

namespace karvel {
namespace {

constexpr int kSecondColumn = 120;  // pixels, of a list entry with a tab

// The arrows of a calendar's months, in the theme's colours.
QIcon MonthArrow(bool next) {
  const int side = BoxPx(24);
  const qreal middle = side / 2.0, back = side * 0.3, point = side * 0.7;
  QPixmap picture(side, side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette::kText);
  painter.drawPolygon(
      QPolygonF{QPointF(next ? back : point, side * 0.2), QPointF(next ? point : back, middle), QPointF(next ? back : point, side * 0.8)});
  return picture;
}

class TabbedEntry : public QStyledItemDelegate {
 public:
  explicit TabbedEntry(const DeskUi& ui, QObject* parent) : QStyledItemDelegate(parent), ui_(ui) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QStringList parts = index.data().toString().split('\t');
    QStyleOptionViewItem first = option;
    initStyleOption(&first, index);
    if (parts.size() < 2) {
      QStyledItemDelegate::paint(painter, option, index);
      return;
    }
    first.text = parts[0];
    first.widget->style()->drawControl(QStyle::CE_ItemViewItem, &first, painter, first.widget);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(palette::kText);
    painter->drawText(option.rect.adjusted(ui_.theme.Px(kSecondColumn), 0, -8, 0), Qt::AlignLeft | Qt::AlignVCenter,
                      parts.mid(1).join("  "));
    painter->restore();
  }

 private:
  const DeskUi& ui_;
};

}  // namespace

ComboField::ComboField(const DeskUi& ui, Element& element, QWidget* parent) : QComboBox(parent), ui_(ui), element_(element) {
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(8);
  setMaxVisibleItems(9);
  setView(new QListView(this));  // in the platform's own pop-up no entry is as high as a finger
  connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (syncing_) return;
    chosen_ = true;
    if (ui_.Reaches(element_)) element_.Choose(index);
    Sync();
  });
  connect(this, &QComboBox::activated, this, [this](int index) {
    // The entry that stands there was chosen once more: a list that was narrowed in another way meanwhile follows it again.
    if (!std::exchange(chosen_, false) && index == element_.ListIndex() && ui_.Reaches(element_)) element_.click();
  });
}

void ComboField::Pick(int index) {
  chosen_ = false;
  const QPointer<ComboField> self(this);
  setCurrentIndex(index);
  if (self) Q_EMIT activated(index);
}

void ComboField::Sync() {
  const bool outer = syncing_;
  syncing_ = true;
  const auto& items = element_.Items();
  bool same = count() == static_cast<int>(items.size());
  for (int i = 0; same && i < count(); ++i) same = ToUtf8(itemText(i)) == items[static_cast<std::size_t>(i)];
  if (!same) {
    clear();
    for (const std::string& item : items) addItem(ToQt(item));
  }
  if (currentIndex() != element_.ListIndex()) setCurrentIndex(element_.ListIndex());
  if (element_.ListIndex() < 0) setPlaceholderText(ToQt(element_.Text()));
  syncing_ = outer;
}

DateField::DateField(const DeskUi& ui, Element& element, QWidget* parent) : QDateEdit(parent), ui_(ui), element_(element) {
  const QLocale turkish(QLocale::Turkish, QLocale::Turkey);
  setLocale(turkish);
  setDisplayFormat("dd.MM.yyyy");
  setDateRange(QDate(1990, 1, 1), QDate(2099, 12, 31));
  setSpecialValueText(" ");
  setCalendarPopup(true);
  calendarWidget()->setLocale(turkish);
  calendarWidget()->setGridVisible(false);
  calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendarWidget()->setMinimumSize(BoxPx(380), BoxPx(340));
  for (const auto& [name, next, says] :
       {std::tuple("qt_calendar_prevmonth", false, "Önceki ay"), {"qt_calendar_nextmonth", true, "Sonraki ay"}}) {
    auto* const arrow = calendarWidget()->findChild<QToolButton*>(name);
    if (!arrow) continue;
    arrow->setIcon(MonthArrow(next));
    arrow->setAccessibleName(says);
  }
  lineEdit()->installEventFilter(this);
  connect(this, &QDateEdit::dateChanged, this, [this](QDate date) {
    if (syncing_) return;
    const DateTime held = element_.Date();
    const DateTime picked{static_cast<std::int16_t>(date.year()), static_cast<std::int8_t>(date.month()),
                          static_cast<std::int8_t>(date.day())};
    if (ui_.Reaches(element_) && held.Date() != picked) element_.SetDate(picked);
    Sync();
  });
}

QPoint DateField::Arrow() const {
  QStyleOptionComboBox option;
  option.initFrom(this);
  option.editable = true;
  option.subControls = QStyle::SC_All;
  return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this).center();
}

bool DateField::eventFilter(QObject* object, QEvent* event) {
  if (object != lineEdit() || event->type() != QEvent::MouseButtonPress) return QDateEdit::eventFilter(object, event);
  if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) OpenCalendar();
  return true;
}

void DateField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space) {
    OpenCalendar();
  } else {
    QDateEdit::keyPressEvent(event);
  }
}

void DateField::OpenCalendar() {
  const QPointF arrow = Arrow();
  QMouseEvent onArrow(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  mousePressEvent(&onArrow);
}

void DateField::Sync() {
  const bool outer = syncing_;
  syncing_ = true;
  const DateTime held = element_.Date();
  const QDate wanted = held.IsEmpty() ? minimumDate() : QDate(held.year, held.month, held.day);
  if (wanted.isValid() && wanted != date()) setDate(wanted);
  syncing_ = outer;
}

ListField::ListField(const DeskUi& ui, Element& element, QWidget* parent) : QListWidget(parent), ui_(ui), element_(element) {
  setItemDelegate(new TabbedEntry(ui, this));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
    if (syncing_ || row < 0) return;
    if (ui_.Reaches(element_)) element_.Choose(row);
    Sync();
  });
  // A tap on the entry that was chosen before the press is a tap all the same.
  connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    if (row(item) == chosenBeforePress_ && ui_.Reaches(element_)) element_.click();
  });
}

void ListField::mousePressEvent(QMouseEvent* event) {
  chosenBeforePress_ = element_.ListIndex();
  QListWidget::mousePressEvent(event);
}

void ListField::Sync() {
  const bool outer = syncing_;
  syncing_ = true;
  if (shown_ != element_.Items()) {
    shown_ = element_.Items();
    clear();
    for (const std::string& item : shown_) addItem(ToQt(item));
  }
  if (currentRow() != element_.ListIndex()) setCurrentRow(element_.ListIndex());
  syncing_ = outer;
}

}  // namespace karvel
