// The printed name of a field on a card. No element: it only says what stands below or beside it.
#pragma once

#include <QLabel>

#include "app/desk_ui.h"

namespace karvel {

class FieldName : public QLabel {
 public:
  FieldName(DeskUi& ui, const QString& text, QWidget* parent, FontRole role = FontRole::Small)
      : QLabel(text, parent), ui_(ui), role_(role) {
    QPalette look = QLabel::palette();
    look.setColor(QPalette::WindowText, palette::kMuted);
    setPalette(look);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFont(ui_.theme.Font(role_));
    connections_ += ui.theme.changed.Connect([this] { setFont(ui_.theme.Font(role_)); });
  }

 private:
  const DeskUi& ui_;
  const FontRole role_;
  Connections connections_;
};

}  // namespace karvel
