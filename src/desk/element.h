// A named element of the screen: what it holds, and what happens to it. No behaviour of its own.
//
// What stays true:
// - A change made by code and a change made by a person fire the same handlers, and only a real change fires them.
// - `altered` fires after every change of any property, `changed` after a change of text (caption, list entry, date) alone.
// - A handler may set the same element again; the last value holds.
// The window shows elements and turns the clerk's taps and keys into the events below; features connect to the events.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/signal.h"
#include "text/date_time.h"

namespace karvel {

class Elements;

enum class ElementKind { Form, Panel, Label, TextBox, Button, CheckBox, Combo, DatePicker, Grid, List, Menu, Picture };

// The state colours. How they look is the theme's matter.
namespace color {
inline constexpr int kBlack = 0;
inline constexpr int kRed = 255;
inline constexpr int kYellow = 65535;
inline constexpr int kGreen = 65280;
inline constexpr int kWhite = 16777215;
inline constexpr int kCyan = 16776960;
}  // namespace color

// Key codes of the events, the platform's virtual keys.
namespace key {
inline constexpr int kBackspace = 8, kTab = 9, kEnter = 13, kEscape = 27, kEnd = 35, kHome = 36, kLeft = 37, kUp = 38, kRight = 39,
                     kDown = 40, kDelete = 46, kF1 = 112, kF8 = 119;
}  // namespace key

struct KeyEvent {
  int code = 0;  // a virtual key: letters and digits by their capital ASCII letter, others as in `key`
  bool shift = false, ctrl = false, alt = false;
  bool dropped = false;  // a handler that sets it ends the key: no character, no default action
};

struct CharacterEvent {
  char32_t character = 0;  // Enter is 13, Backspace 8, Tab 9; a handler may alter it; 0 drops it
};

struct MouseEvent {
  int button = 1;  // 1 left, 2 right
  bool shift = false, ctrl = false, alt = false;
  int x = 0, y = 0;       // pixels inside the element
  bool entering = false;  // the press that brought the focus here
};

class Element {
 public:
  Element(Elements& all, std::string name, ElementKind kind, std::string text, Element* panel);
  virtual ~Element() = default;
  Element(const Element&) = delete;
  Element& operator=(const Element&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] ElementKind Kind() const { return kind_; }
  [[nodiscard]] Element* Panel() const { return panel_; }  // the panel or form that it lies on; null for the form

  // The text of a text box or combo, the caption of anything else: one value under two names.
  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] const std::string& Caption() const { return text_; }
  // What is longer is cut: a text box takes 255 letters, anything else 4,000. A store may hold a text without end, and each key in a field
  // is looked up with all that stands in it.
  static constexpr std::size_t kMostTyped = 255, kMostShown = 4000;
  void SetText(const std::string& text);
  void SetCaption(const std::string& text) { SetText(text); }

  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  // Visible, or enabled, together with every panel that it lies on.
  [[nodiscard]] bool IsShown() const;
  [[nodiscard]] bool IsOpen() const;
  // A check box fires `click` when this changes it, as the clerk's tap does; a menu entry doesn't.
  [[nodiscard]] bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  [[nodiscard]] int Color() const { return color_; }
  void SetColor(int color);
  // Closed to typing. A locked box still takes focus and selection.
  [[nodiscard]] bool Locked() const { return locked_; }
  void SetLocked(bool locked);
  // A fixed font family for this element ("Agency FB"); empty: the desk's.
  [[nodiscard]] const std::string& FontName() const { return fontName_; }
  void SetFontName(const std::string& name);

  // Selection of a text box, in letters.
  [[nodiscard]] int SelectionStart() const { return selectionStart_; }
  [[nodiscard]] int SelectionLength() const { return selectionLength_; }
  void Select(int start, int length);
  void SelectAll();
  void CaretToEnd();

  // Entries of a combo or list.
  [[nodiscard]] const std::vector<std::string>& Items() const { return items_; }
  void SetItems(std::vector<std::string> items);  // then no entry is chosen, and a combo's text is empty
  void AddItem(const std::string& item);
  void ClearItems() { SetItems({}); }
  // The chosen entry, from 0; -1: none. Choosing another one sets a combo's text and fires `click`.
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  void Choose(int index);
  // Chooses the entry of this text, by the compare rule; false when there is none.
  bool ChooseText(const std::string& text);

  // Date of a date picker.
  [[nodiscard]] DateTime Date() const { return date_; }
  void SetDate(const DateTime& date);

  // Brings a panel in front of its neighbours. A higher number lies further in front.
  void BringToFront();
  [[nodiscard]] std::int64_t Depth() const { return depth_; }

  // Asks for the focus; nothing happens while the element can't have it.
  void SetFocus();
  // The window has given it the keyboard.
  void TakeFocus();
  [[nodiscard]] bool HasFocus() const;
  // A tap on a button or menu entry from code: fires `click` if the element is enabled.
  void Press();

  Signal<> altered;
  Signal<> changed;
  Signal<> click;
  Signal<> dblClick;
  Signal<const MouseEvent&> mouseDown;
  Signal<const MouseEvent&> mouseUp;
  Signal<const MouseEvent&> mouseMove;
  Signal<> gotFocus;
  Signal<> lostFocus;
  // In the order of one key: down, character, (change), up.
  Signal<KeyEvent&> keyDown;
  Signal<CharacterEvent&> character;
  Signal<KeyEvent&> keyUp;

 protected:
  void Altered() { altered(); }

 private:
  friend class Elements;
  Elements& all_;
  const std::string name_;
  const ElementKind kind_;
  Element* const panel_;
  std::string text_;
  std::string fontName_;
  std::vector<std::string> items_;
  DateTime date_;
  std::int64_t depth_ = 0;
  int listIndex_ = -1;
  int selectionStart_ = 0, selectionLength_ = 0;
  int color_ = -1;  // -1: the theme's own
  bool visible_ = true, enabled_ = true, checked_ = false, locked_ = false;
};

// A data grid: columns over a cursor. The window reads the rows that it shows from the cursor.
class Cursor;

enum class Align { Left, Right, Center };

struct GridColumn {
  std::string caption;
  std::string field;
  bool visible = true;
  Align align = Align::Left;
  std::string format{};  // of numbers and dates; "" shows the plain text
  double width = 0;      // screen units of the layout file (twips); 0: fitted to heading and grid
};

class GridElement : public Element {
 public:
  GridElement(Elements& all, std::string name, Element* panel);

  [[nodiscard]] const std::vector<GridColumn>& Columns() const { return columns_; }
  void SetColumns(std::vector<GridColumn> columns);
  [[nodiscard]] Cursor* Source() const { return source_; }
  void SetSource(Cursor* cursor);
  // The row marker: whether the current row is painted as chosen.
  [[nodiscard]] bool Marker() const { return marker_; }
  void SetMarker(bool on);
  // The column of the cell last tapped.
  [[nodiscard]] int Column() const { return column_; }
  // The window calls these when it has moved the source's current record to the tapped row.
  void TapCell(int column);
  void DoubleTapCell(int column);

  Signal<int> headClick;    // column number
  Signal<> released;        // the finger came up, on a row, a heading or elsewhere; raised before the tap's own event
  Signal<> columnsResized;  // the clerk dragged a border
  // Raised by the feature that gave the list other columns, so that the layout kept for them comes back.
  Signal<> columnsSwitched;

 private:
  std::vector<GridColumn> columns_;
  Cursor* source_ = nullptr;
  int column_ = 0;
  bool marker_ = true;
};

}  // namespace karvel
