#include "platform/qt/plots/plot_mouse.h"

#include <QMainWindow>
#include <QStatusBar>
#include <QTextDocument>
#include <memory>
#include <utility>

#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

int KeysOf(Qt::KeyboardModifiers held) {
  return (held & Qt::ShiftModifier ? ShiftKey : 0) | (held & Qt::ControlModifier ? CtrlKey : 0) |
         (held & Qt::AltModifier ? AltKey : 0);
}

enum class Drag { None, Band, Lasso, Cross };

struct DragState {
  Drag drag = Drag::None;
  Qt::MouseButton button = Qt::NoButton;
  MouseBox box;
  velorix::Lasso lasso;

  void Begin(Drag kind, const PictureMouse& event) {
    drag = kind;
    button = event.button;
    const float x = static_cast<float>(event.x), y = static_cast<float>(event.y);
    box = {x, y, x, y};
    lasso = {};
    Follow(event);
  }
  void Follow(const PictureMouse& event) {
    box.x2 = static_cast<float>(event.x);
    box.y2 = static_cast<float>(event.y);
    if (drag == Drag::Lasso) lasso.Add({event.x, event.y});
  }
};

/// What the button draws; the cross comes before the others.
Drag DragOf(const PlotMouse& mouse, const PictureMouse& event) {
  const bool left = event.button == Qt::LeftButton;
  const bool cross =
      event.button == Qt::MiddleButton || (left && KeysOf(event.keys) == (CtrlKey | ShiftKey));
  if (mouse.Cross && cross) return Drag::Cross;
  if (left && mouse.SelectIn && mouse.LassoOn()) return Drag::Lasso;
  if (left && mouse.Select) return Drag::Band;
  return Drag::None;
}

void ShowDrag(PictureWidget& picture, const std::shared_ptr<DragState>& state,
              const PictureMouse& event) {
  if (state->drag == Drag::Band)
    picture.SetOverlay([box = state->box](Target& target) { DrawRubberBand(target, box); });
  if (state->drag == Drag::Lasso)  // the line is not copied at each move
    picture.SetOverlay([state](Target& target) { DrawLasso(target, state->lasso); });
  if (state->drag == Drag::Cross)
    picture.SetOverlay(
        [x = event.x, y = event.y](Target& target) { DrawMeasuringCross(target, x, y); });
}

/// The name of what is under the mouse, in the tip and in the status line. Where there is none the
/// tip is the picture's own. A message in the status line stays its time.
class ShownName {
 public:
  explicit ShownName(QWidget& picture) : picture_(picture), ownTip_(picture.toolTip()) {}

  void Show(const QString& name) {
    if (name == name_) return;
    name_ = name;
    // A name with signs of a mark-up language is shown as it is.
    const QString tip =
        Qt::mightBeRichText(name) ? "<span>" + name.toHtmlEscaped() + "</span>" : name;
    picture_.setToolTip(name.isEmpty() ? ownTip_ : tip);
    auto* window = qobject_cast<QMainWindow*>(picture_.window());
    if (!window) return;
    QStatusBar& bar = *window->statusBar();
    const QString message = bar.currentMessage();
    if (!message.isEmpty() && message != inBar_) return;
    bar.showMessage(name);
    inBar_ = name;
  }

 private:
  QWidget& picture_;
  QString ownTip_, name_, inBar_;
};

}  // namespace

void AttachMouse(PictureWidget& picture, const PlotMouse& mouse) {
  const auto state = std::make_shared<DragState>();
  const auto name = std::make_shared<ShownName>(picture);
  picture.OnPress = [&picture, state, mouse](const PictureMouse& event) {
    if (state->drag != Drag::None) return;
    const Drag drag = DragOf(mouse, event);
    if (drag == Drag::None) return;
    state->Begin(drag, event);
    ShowDrag(picture, state, event);
  };
  picture.OnMove = [&picture, state, name, mouse](const PictureMouse& event) {
    if (mouse.ReadOut) mouse.ReadOut(event.x, event.y);
    if (mouse.Name && !event.buttons)
      name->Show(ToQString(mouse.Name({event.x, event.y}, event.zoom)));
    state->Follow(event);
    ShowDrag(picture, state, event);
  };
  picture.OnRelease = [&picture, state, mouse](const PictureMouse& event) {
    if (state->drag == Drag::None || event.button != state->button) return;
    state->Follow(event);
    const Drag ended = std::exchange(state->drag, Drag::None);
    picture.SetOverlay({});
    const int keys = KeysOf(event.keys);
    if (ended == Drag::Lasso && !state->lasso.IsClick()) return mouse.SelectIn(state->lasso, keys);
    if (ended == Drag::Lasso) state->box.x1 = state->box.x2, state->box.y1 = state->box.y2;
    if (ended != Drag::Cross && mouse.Select) mouse.Select(state->box, keys);
  };
  picture.OnLeave = [name, mouse] {
    if (mouse.Leave) mouse.Leave();
    name->Show({});
  };
}

}  // namespace velorix
