// The standard fields of a choice: combo, date picker, list.
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
  void Sync();
  // Chooses an entry as a person does, also the one that stands there already.
  void Pick(int index);

 private:
  const DeskUi& ui_;
  Element& element_;
  bool syncing_ = false;
  bool chosen_ = false;  // the choice that is being reported is another entry
};

class DateField : public QDateEdit {
  Q_OBJECT

 public:
  DateField(const DeskUi& ui, Element& element, QWidget* parent);
  void Sync();

 private:
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
