#pragma once

#include <string>

namespace karvel {

// The frame around a desk window, as the window manager shows it.
class Window {
 public:
  virtual ~Window() = default;
  virtual void SetTitle(const std::string& title) = 0;
  // Size and place kept under a name ("VelmoraKrv"); what was never kept stays as it is.
  virtual void RestoreFitting(const std::string& name) = 0;
  virtual void SaveFitting(const std::string& name) = 0;
  // Fixed: can't be moved, sized or closed by its frame. Otherwise the frame is whole.
  virtual void SetFixed(bool fixed) = 0;
  // Moves or sizes by pixels, kept on the screen.
  virtual void MoveBy(int dx, int dy) = 0;
  virtual void SizeBy(int dw, int dh) = 0;
  // True while the desk is the window in front.
  [[nodiscard]] virtual bool IsActive() const = 0;
  // Brings the window in front of all others, or the box that is open over it. Does nothing before it is shown.
  virtual void Raise() = 0;
  // Asks the window to close, as its close box does.
  virtual void Close() = 0;
  // From now on the window hears taps on this element alone, and Escape as a tap on it; every other key, tap and close request is dropped,
  // as under a box. "": it hears all again.
  virtual void HearOnly(const std::string& elementName) = 0;
  // Ends the program at once, with exit code 0: nobody is asked, nothing is saved or backed up. It ends when the handlers that run have
  // returned.
  virtual void End() = 0;
  // The width of a text in an element's font, in pixels, and the element's own inner width.
  [[nodiscard]] virtual int TextWidth(const std::string& elementName, const std::string& text) const = 0;
  [[nodiscard]] virtual int InnerWidth(const std::string& elementName) const = 0;
  // The height of a grid's row, and of the place for its rows, in pixels.
  [[nodiscard]] virtual int RowHeight(const std::string& gridName) const = 0;
  [[nodiscard]] virtual int InnerHeight(const std::string& gridName) const = 0;
  // The fonts of the desk: of the form and its elements, and of the grids. Empty name: the theme's own. Size in points, 0: the theme's own.
  // The day-book list is written 4 points smaller than the other grids.
  virtual void SetDeskFont(const std::string& name, double size, bool bold) = 0;
  virtual void SetGridFont(const std::string& name, double size, bool bold) = 0;
};

}  // namespace karvel
