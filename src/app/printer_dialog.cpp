#include "app/printer_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/qt_printer.h"
#include "app/qt_text.h"
#include "app/theme.h"

namespace karvel {
namespace {
constexpr int kRowHeight = 48, kMostCopies = 99;
}  // namespace

PrinterDialog::PrinterDialog(const QtPrinter& printer, const PrinterChoice& preset, QWidget* parent)
    : QDialog(parent),
      printer_(printer),
      devices_(printer.Printers()),
      preset_(preset),
      printers_(new QListWidget),
      papers_(new QComboBox),
      orientation_(new QComboBox),
      copies_(new QSpinBox) {
  setWindowTitle(QStringLiteral("Yazıcı"));
  orientation_->addItems({QStringLiteral("Dik"), QStringLiteral("Yatay")});
  orientation_->setCurrentIndex(preset.orientation == 2 ? 1 : 0);
  copies_->setRange(1, kMostCopies);
  copies_->setValue(preset.copies);
  printers_->setAccessibleName(QStringLiteral("Yazıcılar"));
  for (QWidget* const field : {static_cast<QWidget*>(papers_), static_cast<QWidget*>(orientation_), static_cast<QWidget*>(copies_)})
    field->setMinimumHeight(BoxPx(kRowHeight));

  auto* const fields = new QFormLayout;
  fields->addRow(QStringLiteral("Kâğıt"), papers_);
  fields->addRow(QStringLiteral("Yön"), orientation_);
  fields->addRow(QStringLiteral("Adet"), copies_);
  auto* const buttons = new QDialogButtonBox;
  buttons->addButton(QStringLiteral("Tamam"), QDialogButtonBox::AcceptRole);
  buttons->addButton(QStringLiteral("Vazgeç"), QDialogButtonBox::RejectRole);
  auto* const all = new QVBoxLayout(this);
  all->addWidget(printers_);
  all->addLayout(fields);
  all->addWidget(buttons);

  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(printers_, &QListWidget::currentRowChanged, this, [this] { ListPapers(preset_.paperSize); });
  ListPrinters();
}

void PrinterDialog::ListPrinters() {
  int chosen = 0;
  for (const PrinterDevice& device : devices_) {
    auto* const row = new QListWidgetItem(ToQt(device.deviceName), printers_);
    row->setSizeHint(QSize(0, BoxPx(kRowHeight)));
    if (device.deviceName == preset_.deviceName) chosen = printers_->count() - 1;
  }
  printers_->setCurrentRow(chosen);
}

void PrinterDialog::ListPapers(int number) {
  papers_->clear();
  for (const Paper& paper : printer_.PapersOf(ToUtf8(printers_->currentItem()->text()))) papers_->addItem(ToQt(paper.name), paper.number);
  papers_->setCurrentIndex(std::max(0, papers_->findData(number)));
}

PrinterChoice PrinterDialog::Choice() const {
  const PrinterDevice& device = devices_[static_cast<std::size_t>(printers_->currentRow())];
  return {.deviceName = device.deviceName,
          .driverName = device.driverName,
          .port = device.port,
          .copies = copies_->value(),
          .orientation = orientation_->currentIndex() + 1,
          .paperSize = papers_->currentData().toInt()};
}

}  // namespace karvel
