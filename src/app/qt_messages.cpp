#include "app/qt_messages.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "app/box_keyboard.h"
#include "app/disk_files.h"
#include "app/printer_dialog.h"
#include "app/theme.h"

namespace karvel {
namespace {

constexpr int kMostTyped = 255;

constexpr int kButtonHeight = 64;
constexpr int kButtonWidth = 160;
constexpr int kFieldHeight = 48;

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

void MakeTouchable(QWidget& box) {
  for (QPushButton* button : box.findChildren<QPushButton*>()) button->setMinimumSize(BoxPx(kButtonWidth), BoxPx(kButtonHeight));
  for (QLineEdit* field : box.findChildren<QLineEdit*>()) field->setMinimumHeight(BoxPx(kFieldHeight));
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::Question:
      return QMessageBox::Question;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Stop:
      return QMessageBox::Critical;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

QtMessages::QtMessages(const DiskFiles& files, const QtPrinter& printer, Settings& options)
    : files_(files), printer_(printer), options_(options) {}

MessageAnswer QtMessages::MessageBox(const std::string& text, const std::string& title, MessageIcon icon, MessageButtons buttons) {
  QMessageBox box(IconOf(icon), Q(title), Q(text), QMessageBox::NoButton, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  if (buttons == MessageButtons::Ok) {
    box.setDefaultButton(box.addButton(QStringLiteral("Tamam"), QMessageBox::AcceptRole));
    MakeTouchable(box);
    box.exec();
    return MessageAnswer::Ok;
  }
  QPushButton* const yes = box.addButton(QStringLiteral("Evet"), QMessageBox::YesRole);
  QPushButton* const no = box.addButton(QStringLiteral("Hayır"), QMessageBox::NoRole);
  // A key pressed in haste must not confirm.
  box.setDefaultButton(no);
  box.setEscapeButton(no);
  MakeTouchable(box);
  box.exec();
  return box.clickedButton() == yes ? MessageAnswer::Yes : MessageAnswer::No;
}

std::optional<std::string> QtMessages::InputBox(const std::string& prompt, const std::string& title, const std::string& preset) {
  QInputDialog box(QApplication::activeWindow());
  box.setWindowTitle(Q(title));
  box.setLabelText(Q(prompt));
  box.setTextValue(Q(preset));
  box.setOkButtonText(QStringLiteral("Tamam"));
  box.setCancelButtonText(QStringLiteral("Vazgeç"));
  MakeTouchable(box);
  if (auto* const line = box.findChild<QLineEdit*>()) {
    line->setMaxLength(kMostTyped);
    new BoxKeyboard(box, *line, options_);
  }
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return box.textValue().toStdString();
}

std::optional<FontChoice> QtMessages::FontDialog(const FontChoice& preset) {
  QFont font = QApplication::font();
  if (!preset.name.empty()) font.setFamily(Q(preset.name));
  if (preset.size > 0) font.setPointSizeF(preset.size);
  font.setBold(preset.bold);
  QFontDialog box(font, QApplication::activeWindow());
  box.setOption(QFontDialog::DontUseNativeDialog);
  box.setWindowTitle(QStringLiteral("Yazı Tipi"));
  MakeTouchable(box);
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  const QFont chosen = box.selectedFont();
  return FontChoice{chosen.family().toStdString(), chosen.pointSizeF(), chosen.bold()};
}

std::optional<PrinterChoice> QtMessages::PrinterDialog(const PrinterChoice& preset) {
  karvel::PrinterDialog box(printer_, preset, QApplication::activeWindow());
  MakeTouchable(box);
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return box.Choice();
}

std::optional<std::string> QtMessages::FileDialog(const std::string& title, const std::string& preset) {
  QFileDialog box(QApplication::activeWindow(), Q(title));
  box.setOption(QFileDialog::DontUseNativeDialog);
  box.setFileMode(QFileDialog::ExistingFile);
  if (const std::string real = files_.RealPath(preset); !preset.empty() && !real.empty()) box.selectFile(Q(real));
  MakeTouchable(box);
  if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return std::nullopt;
  return files_.DeskPath(box.selectedFiles().constFirst().toStdString());
}

}  // namespace karvel
