#include "app/box_keyboard.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLayout>

#include "app/floating_layouts.h"
#include "app/qt_text.h"
#include "desk/entry_fields.h"

namespace karvel {

BoxKeyboard::BoxKeyboard(QDialog& box, QLineEdit& line, Settings& settings)
    : QObject(&box), box_(box), line_(line), settings_(settings), keys_(screen_.Form2, settings) {
  line.installEventFilter(this);
  connections_ += Keys().Text1.changed.Connect([this] {
    if (line_.text() != ToQt(Keys().Text1.Text())) line_.setText(ToQt(Keys().Text1.Text()));
  });
  connect(&line, &QLineEdit::textChanged, this, [this](const QString& text) {
    Keys().Text1.SetText(ToUtf8(text));
    Keys().Text1.CaretToEnd();
  });
  connections_ += Keys().Command1.click.Connect([this] {
    card_->hide();
    Keys().Form2.SetVisible(false);
    line_.setFocus();
    box_.adjustSize();
  });
}

bool BoxKeyboard::eventFilter(QObject* object, QEvent* event) {
  const auto choice = static_cast<KeyboardChoice>(static_cast<int>(settings_.GetNumber(Setting::ScreenKeyboard)));
  if (event->type() == QEvent::KeyPress && !static_cast<QKeyEvent*>(event)->text().isEmpty()) typed_ = true;
  if (event->type() == QEvent::MouseButtonRelease) {
    if (choice == KeyboardChoice::Never) {
      line_.selectAll();
    } else if (choice == KeyboardChoice::Always || !typed_) {
      Open();
    }
  }
  return QObject::eventFilter(object, event);
}

void BoxKeyboard::Open() {
  if (!card_) {
    card_ = new KeyCard(ui_, Keys(), &box_);
    FillKeyboard(ui_, *card_, Keys());
    card_->setMinimumSize(Keys().frame.Sizes().least.width, Keys().frame.Sizes().least.height);
    box_.layout()->addWidget(card_);
    keys_.ReadCase();
  }
  Keys().Form2.SetVisible(true);
  card_->Refresh();
  Keys().Text1.SetText(ToUtf8(line_.text()));
  Keys().Text1.CaretToEnd();
  card_->show();
}

}  // namespace karvel
