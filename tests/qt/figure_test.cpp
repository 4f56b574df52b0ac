#include <QFontMetricsF>
#include <QtTest>
#include <cmath>

#include "app/display/shown_group.h"
#include "app/pictures/figure.h"
#include "app/tables/data_table.h"
#include "plot/drawing/recorder.h"
#include "tensor/derivation.h"
#include "tensor/rotations.h"
#include "tests/qt/painted.h"

namespace velorix {
namespace {

/// Records all over the net, on its rim too, in codes of their own.
Session StudyOf(int records, int codes) {
  Session session;
  session.CoorSys = Geographic;
  for (int i = 0; i < records; ++i) {
    SpecimenRecord r;
    r.Active = r.HasCoor[2] = true;
    r.CoorLevel = Geographic;
    r.OP = {6, 0, 6, 0};
    const float turn = static_cast<float>(i) * 0.7f;
    const float tensor[] = {1.05f + 0.01f * std::sin(turn), 1.0f, 0.95f,
                            0.05f * std::cos(turn),         0.0f, 0.04f * std::sin(3 * turn)};
    for (int c = 1; c <= 6; ++c) r.Tensor[c] = tensor[c - 1];
    r.Km = 1e-3f * static_cast<float>(i + 1);
    if (codes > 0) {
      r.FoliName[1] = "S" + std::to_string(i % codes);
      r.LineName[1] = "L" + std::to_string(i % codes);
      r.FoliDec[1] = r.LineDec[1] = static_cast<float>(37 * i % 360);
      r.FoliInc[1] = r.LineInc[1] = static_cast<float>(i % 90);
    }
    DeriveFactors(r, session.Settings.FacIndex, InPhase);
    RotateRecord(r, {});
    if (i % 3 == 0) r.Inc[1] = 0.0;  // on the rim
    if (i % 12 == 0) r.Dec[1] = 90.0f * static_cast<float>(i / 12 % 4);
    session.Records.Add(r);
  }
  return session;
}

/// The ink of a text, as the painter places it.
QRectF InkOf(const TextCall& call) {
  QFont font;
  font.setFamilies({QString::fromStdString(call.style.font), QStringLiteral("Liberation Sans")});
  font.setPixelSize(static_cast<int>(std::lround(call.style.height / (0.905 + 0.212))));
  font.setWeight(static_cast<QFont::Weight>(call.style.weight));
  const QFontMetricsF metrics(font);
  const QString text = QString::fromStdString(call.text).trimmed();
  const QString whole = QString::fromStdString(call.text);
  double x = 0, y = 0;
  if ((call.style.alignment & AlignCentre) == AlignCentre)
    x = -metrics.horizontalAdvance(whole) / 2;
  else if (call.style.alignment & AlignRight)
    x = -metrics.horizontalAdvance(whole);
  if ((call.style.alignment & AlignBaseline) != AlignBaseline) y = metrics.ascent();
  QRectF ink = metrics.tightBoundingRect(text).translated(
      x + (whole.startsWith(' ') ? metrics.horizontalAdvance(' ') : 0), y);
  if (call.style.rotation == 900) ink = QRectF(ink.top(), -ink.right(), ink.height(), ink.width());
  return ink.translated(call.point.x, call.point.y);
}

/// The box of a symbol; of larger shapes, such as a frame, none.
QRectF SymbolOf(const DrawCall& call) {
  constexpr double Largest = 250;
  QRectF box;
  if (const auto* polygon = std::get_if<PolygonCall>(&call)) {
    for (const LogicalPoint& p : polygon->points) box |= QRectF(p.x - 0.5, p.y - 0.5, 1, 1);
    if (polygon->pen.style == NoLine) return {};
  } else if (const auto* ellipse = std::get_if<EllipseCall>(&call)) {
    box = QRectF(QPointF(ellipse->box.left, ellipse->box.top),
                 QPointF(ellipse->box.right, ellipse->box.bottom));
  }
  return box.width() < Largest ? box : QRectF();
}

/// The texts that meet another text, a symbol or the border of the figure.
std::string CollisionsIn(const std::vector<DrawCall>& calls, PlaneSize plane) {
  std::string collisions;
  std::vector<std::pair<std::string, QRectF>> texts;
  for (const DrawCall& call : calls)
    if (const auto* text = std::get_if<TextCall>(&call))
      texts.emplace_back(text->text, InkOf(*text));
  const QRectF page(0, 0, plane.width, plane.height);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const auto& [words, box] = texts[i];
    if (!page.contains(box)) collisions += words + " leaves the figure; ";
    for (std::size_t j = 0; j < i; ++j)
      if (box.intersects(texts[j].second)) collisions += words + " meets " + texts[j].first + "; ";
    for (const DrawCall& call : calls)
      if (box.intersects(SymbolOf(call))) {
        collisions += words + " meets a symbol; ";
        break;
      }
  }
  return collisions;
}

class FigureTest : public QObject {
  Q_OBJECT

 private slots:
  void NoTextMeetsAnything_data() {
    QTest::addColumn<int>("records");
    QTest::addColumn<int>("codes");
    QTest::addColumn<int>("colours");  // 0: none; a ramp for each axis; one ramp
    QTest::addColumn<double>("width");
    QTest::addColumn<bool>("captions");
    for (const int records : {1, 5, 134})
      for (const int codes : {0, 1, 6, 8})
        for (const int colours : {0, 1, 2})
          for (const double width : {85.0, 174.0})
            for (const bool captions : {true, false})
              QTest::addRow("%d-%d-%d-%g-%d", records, codes, colours, width, captions)
                  << records << codes << colours << width << captions;
  }
  void NoTextMeetsAnything() {
    QFETCH(int, records);
    QFETCH(int, codes);
    QFETCH(int, colours);
    QFETCH(double, width);
    QFETCH(bool, captions);
    const Session session = StudyOf(records, codes);
    PlotChoices plots;
    plots.XYPlot[1] = {Column::Km, Column::Fac3, Column::Km, colours > 0, false};
    plots.XYPlot[2] = {Column::Fac3, Column::Fac5, Column::Km, colours > 0, false};
    StereoOptions& net = plots.Stereo;
    net.showPlanes = net.showLines = codes > 0;
    for (int i = 0; i < codes; ++i) {
      net.foliationCodes.push_back("S" + std::to_string(i));
      net.lineationCodes.push_back("L" + std::to_string(i));
    }
    net.colourByValue = colours > 0;
    net.colourRamp = colours == 2 ? ColourRamp::One : ColourRamp::PerAxis;
    net.colourParameter = Column::Km;
    net.level = ErrorLevel::Confidence95;
    net.meanOf = "a file with a long name of its own.ams, in-phase, geographic, N = 134";
    FigureStyle style;
    style.Layout = FigureLayout::Fill;
    style.Width = width;
    style.FontSize = 7;
    style.SymbolSize = 1.3;
    style.MoreCodes = style.PanelLetters = style.NameLine = true;
    style.Captions = captions ? CaptionPlace::Outside : CaptionPlace::None;
    const GroupStats none;
    const GroupSubject of = GroupInView(session);
    const PageContent subject = {session, plots, none, of};
    Recorder recorder;
    DrawFigure(subject, style, recorder);
    QCOMPARE(QString::fromStdString(CollisionsIn(recorder.calls, FigurePlane(subject, style))),
             QString());
  }

  void TheLegendOfGroupsHasTheFiguresLetters() {
    const Session session = StudyOf(2, 0);
    PlotChoices plots;
    plots.Marks = {MarkBy::Colours, true, {{"one", 1}, {"two", 1}}, {0, 1}, {}};
    const GroupStats none;
    const GroupSubject of = GroupInView(session);
    FigureStyle style;
    const auto legendLetters = [&] {
      Recorder recorder;
      DrawFigure({session, plots, none, of}, style, recorder);
      for (const DrawCall& call : recorder.calls)
        if (const auto* text = std::get_if<TextCall>(&call); text && text->text == "two")
          return static_cast<int>(text->style.height);
      return 0;
    };
    style.Width = 114.3;  // half of the page, whose letters are 12/100 of an inch
    QCOMPARE(legendLetters(), 60);
    style.Layout = FigureLayout::Fill;
    QCOMPARE(legendLetters(), 120);
    style.FontSize = 9;  // 9/72 inch, and 1.117 of that a cell
    QCOMPARE(legendLetters(), 140);
  }
};

}  // namespace
}  // namespace velorix

QTEST_MAIN(velorix::FigureTest)
#include "figure_test.moc"
