#include "platform/qt/plots/plot_mouse.h"

#include <memory>

namespace velorix {
namespace {

int KeysOf(Qt::KeyboardModifiers held) {
  return (held & Qt::ShiftModifier ? ShiftKey : 0) | (held & Qt::ControlModifier ? CtrlKey : 0) |
         (held & Qt::AltModifier ? AltKey : 0);
}

enum class Drag { None, Band, Cross };

struct DragState {
  Drag drag = Drag::None;
  Qt::MouseButton button = Qt::NoButton;
  MouseBox box;
};

void ShowDrag(PictureWidget& picture, const DragState& state, const PictureMouse& event) {
  if (state.drag == Drag::Band)
    picture.SetOverlay([box = state.box](Target& target) { DrawRubberBand(target, box); });
  if (state.drag == Drag::Cross)
    picture.SetOverlay(
        [x = event.x, y = event.y](Target& target) { DrawMeasuringCross(target, x, y); });
}

}  // namespace

void AttachMouse(PictureWidget& picture, const PlotMouse& mouse) {
  const auto state = std::make_shared<DragState>();
  picture.OnPress = [&picture, state, mouse](const PictureMouse& event) {
    if (state->drag != Drag::None) return;
    const bool left = event.button == Qt::LeftButton;
    const bool cross =
        event.button == Qt::MiddleButton || (left && KeysOf(event.keys) == (CtrlKey | ShiftKey));
    if (mouse.Cross && cross)
      state->drag = Drag::Cross;
    else if (mouse.Select && left)
      state->drag = Drag::Band;
    else
      return;
    state->button = event.button;
    const float x = static_cast<float>(event.x), y = static_cast<float>(event.y);
    state->box = {x, y, x, y};
    ShowDrag(picture, *state, event);
  };
  picture.OnMove = [&picture, state, mouse](const PictureMouse& event) {
    if (mouse.ReadOut) mouse.ReadOut(event.x, event.y);
    state->box.x2 = static_cast<float>(event.x);
    state->box.y2 = static_cast<float>(event.y);
    ShowDrag(picture, *state, event);
  };
  picture.OnRelease = [&picture, state, mouse](const PictureMouse& event) {
    if (state->drag == Drag::None || event.button != state->button) return;
    const Drag ended = std::exchange(state->drag, Drag::None);
    picture.SetOverlay({});
    if (ended != Drag::Band) return;
    state->box.x2 = static_cast<float>(event.x);
    state->box.y2 = static_cast<float>(event.y);
    mouse.Select(state->box, KeysOf(event.keys));
  };
  picture.OnLeave = mouse.Leave;
}

}  // namespace velorix
