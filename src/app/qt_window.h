// The frame around the desk's window. Until a window is attached, title, fitting and fixing are kept for it, and every other call does
// nothing.
#pragma once

#include <QByteArray>
#include <QPointer>
#include <string>

#include "app/desk_window.h"
#include "platform/window.h"

namespace karvel {

class QtWindow : public Window {
 public:
  // The folder that keeps sizes and places, one small file a name ("fitting/VelmoraKrv.bin").
  explicit QtWindow(std::string folder) : folder_(std::move(folder)) {}
  void Attach(DeskWindow* window);
  // Shows the window where it was kept, on the screen as it is today; one that was never kept fills its screen.
  void Show();

  void SetTitle(const std::string& title) override;
  void RestoreFitting(const std::string& name) override;
  void SaveFitting(const std::string& name) override;
  void SetFixed(bool fixed) override;
  void MoveBy(int dx, int dy) override;
  void SizeBy(int dw, int dh) override;
  [[nodiscard]] bool IsActive() const override;
  void Raise() override;
  void Close() override;
  void HearOnly(const std::string& elementName) override;
  void End() override;
  [[nodiscard]] int TextWidth(const std::string& elementName, const std::string& text) const override;
  [[nodiscard]] int InnerWidth(const std::string& elementName) const override;
  [[nodiscard]] int RowHeight(const std::string& gridName) const override;
  [[nodiscard]] int InnerHeight(const std::string& gridName) const override;
  void SetDeskFont(const std::string& name, double size, bool bold) override;
  void SetGridFont(const std::string& name, double size, bool bold) override;

 private:
  [[nodiscard]] QString FittingFile(const std::string& name) const;
  // The frame of the small window that is kept under the name; null for the desk's window itself.
  [[nodiscard]] FloatingFrame* FrameOf(const std::string& name) const;
  [[nodiscard]] QWidget* Find(const std::string& elementName) const;
  [[nodiscard]] bool FillsScreen() const;
  void Place(QRect wanted);

  const std::string folder_;
  QPointer<DeskWindow> window_;
  // What was asked for before the window was there (the load stage runs without one).
  std::string title_, fitting_;
  bool fixed_ = false, kept_ = false;
};

}  // namespace karvel
