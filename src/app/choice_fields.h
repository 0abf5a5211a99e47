// The fields in which something is chosen: combo, date picker, list.
#pragma once

#include <QComboBox>
#include <QDateEdit>
#include <QListWidget>

#include "app/desk_ui.h"

namespace karvel {

class ComboField : public QComboBox {
  Q_OBJECT

 public:
  ComboField(const DeskUi& ui, Element& element, QWidget* parent);
  // Shows the element as it is now, as the Sync of the fields below does.
  void Sync();
  // Chooses an entry as a person does, even the one that is chosen already.
  void Pick(int index);

 private:
  const DeskUi& ui_;
  Element& element_;
  bool syncing_ = false;
  bool chosen_ = false;  // another entry was chosen, and that has been reported
};

class DateField : public QDateEdit {
  Q_OBJECT

 public:
  DateField(const DeskUi& ui, Element& element, QWidget* parent);
  void Sync();

 protected:
  // A finger opens the calendar wherever it comes down: nothing else on a date can be tapped.
  bool eventFilter(QObject* object, QEvent* event) override;
  // Space opens it too; there the arrows walk, PageUp and PageDown leaf by months, and Enter takes the day.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void OpenCalendar();
  [[nodiscard]] QPoint Arrow() const;

  const DeskUi& ui_;
  Element& element_;
  bool syncing_ = false;
};

// A tab in an entry begins its second column.
class ListField : public QListWidget {
  Q_OBJECT

 public:
  ListField(const DeskUi& ui, Element& element, QWidget* parent);
  void Sync();

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  const DeskUi& ui_;
  Element& element_;
  std::vector<std::string> shown_;
  int chosenBeforePress_ = -1;
  bool syncing_ = false;
};

}  // namespace karvel
