#include "platform/qt/main_window/view_lists.h"

#include <QHBoxLayout>
#include <QLabel>

#include "app/commands/view_choices.h"
#include "app/display/view_lists.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

void Fill(QComboBox& list, const CodeList& codes) {
  list.clear();
  for (const CodeEntry& entry : codes.Entries) AddEntry(list, ToQString(entry.Text), entry.Colour);
  list.setCurrentIndex(codes.ListIndex);
}

}  // namespace

ViewLists::ViewLists(Velorix& velorix, QWidget* parent) : QWidget(parent), velorix_(velorix) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  cboCoor_[0] = Add("&Coordinates", "cboCoor(1)", "Coordinate system in view", 0,
                    [](Velorix& v, int index) { ChooseCoorSys(v, SystemAt(index)); });
  cboCoor_[1] = Add("&Plane", "cboCoor(2)",
                    "What the foliation becomes in the paleogeographic and tectonic systems", 0,
                    [](Velorix& v, int index) { ChooseTectoPlane(v, PlaneAt(index)); });
  cboCoor_[2] = Add("A&xis", "cboCoor(3)", "Where the lineation goes in the tectonic system", 0,
                    [](Velorix& v, int index) { ChooseTectoAxis(v, TectoAxisAt(index)); });
  odclFoli_ = Add("F&oliation", "odclFoli", "Code of the foliation that the rotation uses", 6,
                  ChooseFoliation);
  odclLine_ =
      Add("&Lineation", "odclLine",
          "Code of the lineation that the rotation uses; 0 takes the strike of the foliation", 6,
          ChooseLineation);
  row->addStretch(1);
  for (const CoordinateSystem system : SystemsInView) cboCoor_[0]->addItem(NamesOf(system).Short);
  for (const char* name : TectoPlaneNames) cboCoor_[1]->addItem(name);
  for (const char* name : TectoAxisNames) cboCoor_[2]->addItem(name);
}

QComboBox* ViewLists::Add(const char* text, const char* name, const char* tip, int characters,
                          void (*choose)(Velorix&, int)) {
  QComboBox* list = MakeList(name, tip, characters, this);
  auto* label = new QLabel(text, this);
  label->setBuddy(list);
  label->setToolTip(tip);
  auto* row = static_cast<QHBoxLayout*>(layout());
  if (row->count() > 0) row->addSpacing(8);
  row->addWidget(label);
  row->addWidget(list);
  QObject::connect(list, &QComboBox::activated, this,
                   [this, choose](int index) { Work(velorix_, [&] { choose(velorix_, index); }); });
  return list;
}

void ViewLists::ShowChoices() {
  cboCoor_[0]->setCurrentIndex(IndexOf(velorix_.Session.CoorSys));
  cboCoor_[1]->setCurrentIndex(IndexOf(velorix_.Session.TectoPlane));
  cboCoor_[2]->setCurrentIndex(IndexOf(TectoAxisOf(velorix_.Session)));
}

void ViewLists::ShowCodeLists() {
  Fill(*odclFoli_, velorix_.Lists.foliationsInUse);
  Fill(*odclLine_, velorix_.Lists.lineationsInUse);
}

}  // namespace velorix
