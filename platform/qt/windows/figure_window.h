#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "plot/figure/figure_style.h"

class QFormLayout;
class QLabel;

namespace velorix {

struct Velorix;
class PictureWidget;

/// The window "Figure Options": a control for each key of a style, and the figure at its true size
/// beside them, drawn again at each change. The style is kept in the program's folder.
class frmFigure : public QDialog {
 public:
  frmFigure(Velorix& velorix, QWidget* owner);
  ~frmFigure() override;

 private:
  void AddControl(QFormLayout& form, const StyleKey& key);
  QWidget* MakeWords(const StyleKey& key, const std::vector<std::string>& words);
  QWidget* MakeNumber(const StyleKey& key);
  QWidget* MakeColour(const StyleKey& key);
  QWidget* MakeFont(const StyleKey& key);
  bool Take(const StyleKey& key, const std::string& text);
  void ShowStyle();
  void ShowFigure();
  void LoadStyle();
  void SaveStyle();
  void SaveFigure();

  Velorix& velorix_;
  FigureStyle style_, kept_;
  std::vector<std::function<void()>> show_;  // puts the style into a control
  bool showing_ = false;
  PictureWidget* picture_ = nullptr;
  QLabel* size_ = nullptr;
};

}  // namespace velorix
