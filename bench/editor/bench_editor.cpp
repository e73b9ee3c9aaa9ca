// Annotating at 3840x2160: what one step costs among many annotations and on a long stroke beside the same
// step among few and on a short one, and what the picture costs beside a bare QPainter. Processor time, in
// turns. Prints one table; ends with 1 when a limit is not kept.
#include "bench/desktop/ProcessorTime.h"
#include "bench/png/ScreenPictures.h"
#include "editor/ZRGraffitManager.h"

#include <QApplication>
#include <QPainterPath>

#include <cmath>

namespace {

constexpr QSize k4K(3840, 2160);
constexpr int kRounds = 15;
constexpr int kSteps = 200; // of a drag, each with its repaint
constexpr const char* kTools[] = {"square", "eillpse", "arrow", "customLine", "light"};

std::shared_ptr<const Frame> frozenScreen()
{
    DisplayRecord display;
    display.pixels = {{0, 0}, k4K};
    display.frame = {0, 0, double(k4K.width()), double(k4K.height())};
    return std::make_shared<Frame>(display, ScreenPictures::flatDesktop(k4K));
}

// A running editor over the whole display, in a window of its own.
class Editor : public RegionImageSource {
public:
    explicit Editor(std::shared_ptr<const Frame> frame)
        : m_frame(std::move(frame))
    {
        m_host.resize(k4K);
        m_manager.setMainManager(this);
        m_manager.addGraffitViewTo(m_host, {});
        m_manager.updateGraffitView({0, 0, double(k4K.width()), double(k4K.height())});
        m_host.show();
        QApplication::processEvents();
    }
    std::shared_ptr<const Frame> frame() const override { return m_frame; }
    QImage getCurrentImageFromTheRegion(ZRRect rect) const override
    {
        return m_frame->crop(m_frame->display().localPixels(rect));
    }

    void press(const char* tool, ZRPoint point)
    {
        m_manager.updateGraffitID(QLatin1String(tool));
        m_manager.editorView()->mouseDown({point, Qt::LeftButton});
    }
    void move(ZRPoint point) { m_manager.editorView()->mouseDragged({point, Qt::NoButton}); }
    void release(ZRPoint point) { m_manager.editorView()->mouseUp({point, Qt::LeftButton}); }
    void undo() { m_manager.undoDrawView(); }
    void moveRegion(ZRRect to) { m_manager.updateGraffitView(to); }
    // A drag in a hundred small steps.
    void draw(const char* tool, ZRPoint from, ZRSize by)
    {
        press(tool, from);
        for (int step = 1; step <= 100; ++step)
            move({from.x + by.width * step / 100,
                from.y + by.height * step / 100 + 20 * std::sin(step / 5.0)});
        release({from.x + by.width, from.y + by.height});
    }
    // All over the display, each overlapping some others.
    void drawMany(int count)
    {
        for (int i = 0; i < count; ++i)
            draw(kTools[i % 5], {100.0 + (i * 397) % 3300, 100.0 + (i * 211) % 1700}, {180, 130});
    }
    std::vector<EntityRecord> records() const { return m_manager.EditorRequest_getAllGraffitRect(); }
    QImage composed() const { return m_manager.composed({{0, 0}, k4K}); }

private:
    std::shared_ptr<const Frame> m_frame;
    View m_host;
    ZRGraffitManager m_manager;
};

// Milliseconds of a rectangle's drag among the editor's annotations.
double dragTime(Editor& editor)
{
    editor.press("square", {1701, 33});
    editor.move({1500, 900});
    const double time = ProcessorTime::of([&editor] {
        for (int step = 0; step < kSteps; ++step) {
            editor.move({1500.0 + step, 900.0 - step % 50});
            QApplication::processEvents();
        }
    });
    editor.release({1500, 900});
    editor.undo();
    return time;
}

ZRPoint scribble(int index)
{
    return {1900 + 1500 * std::sin(index / 40.0), 1000 + 800 * std::sin(index / 57.0)};
}

// Milliseconds of the points that are added to a stroke that has some already.
double strokeTime(Editor& editor, int points)
{
    editor.press("customLine", scribble(0));
    for (int i = 1; i < points; ++i)
        editor.move(scribble(i));
    QApplication::processEvents();
    const double time = ProcessorTime::of([&editor, points] {
        for (int i = points; i < points + kSteps; ++i) {
            editor.move(scribble(i));
            QApplication::processEvents();
        }
    });
    editor.release(scribble(points));
    editor.undo();
    return time;
}

// Three areas of 300x200 in a region of 1600x900, drawn with a tool.
void drawAreas(Editor& editor, const char* tool)
{
    editor.moveRegion({400, 400, 1600, 900});
    for (const double x : {500.0, 900.0, 1300.0}) {
        editor.press(tool, {x, 600});
        editor.move({x + 300, 800});
        editor.release({x + 300, 800});
    }
}

// Milliseconds of the region's drag, a repaint each step.
double moveTime(Editor& editor)
{
    QApplication::processEvents();
    return ProcessorTime::of([&editor] {
        for (int step = 0; step < kSteps; ++step) {
            editor.moveRegion({400.0 + step % 100, 400.0 + step % 60, 1600, 900});
            QApplication::processEvents();
        }
    });
}

// Blurs and mosaics are made anew at each step.
void benchMovedRegion(const std::shared_ptr<const Frame>& frame, BenchTable& table)
{
    struct Case {
        const char *tool, *name;
        double limit;
    };
    for (const Case& c : {Case{"blur", "moved region, 3 blurs or 3 rectangles", 4},
             Case{"mosic", "moved region, 3 mosaics or 3 rectangles", 2}}) {
        Editor bare(frame), covered(frame);
        drawAreas(bare, "square");
        drawAreas(covered, c.tool);
        ProcessorTime::compare(
            {QLatin1String(c.name), k4K, {}, 0, {}, c.limit}, kRounds, [&bare] { return moveTime(bare); },
            [&covered] { return moveTime(covered); }, table);
    }
}

QPainterPath polyline(const DragPoints& points)
{
    QPainterPath path(QPointF(points.front().x, points.front().y));
    for (const DragPoint p : points)
        path.lineTo(p.x, p.y);
    return path;
}

// The same paths, without what makes them annotations.
void paintBarely(QPainter& painter, const EntityRecord& record)
{
    const bool isLight = record.idName == QLatin1String("light");
    QColor color = record.drawColor;
    color.setAlphaF(isLight ? 0.5F : 1.0F);
    painter.setPen(
        {color, record.drawLineWidth * (isLight ? 2.0 : 1.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    const QRectF rect(record.bounds.x, record.bounds.y, record.bounds.width, record.bounds.height);
    if (record.idName == QLatin1String("square"))
        painter.drawRect(rect);
    else if (record.idName == QLatin1String("eillpse"))
        painter.drawEllipse(rect);
    else if (record.idName == QLatin1String("arrow"))
        painter.fillPath(polyline({record.dragPoints->front(), record.dragPoints->back(),
                             {record.dragPoints->back().x - 30, record.dragPoints->back().y}}),
            color);
    else
        painter.drawPath(polyline(*record.dragPoints));
}

QImage paintedBarely(const Frame& frame, const std::vector<EntityRecord>& records)
{
    QImage picture = frame.image().copy();
    QPainter painter(&picture);
    painter.setTransform({1, 0, 0, -1, 0, double(k4K.height())});
    painter.setRenderHint(QPainter::Antialiasing);
    for (const EntityRecord& record : records)
        paintBarely(painter, record);
    return picture;
}

QImage paintedByUs(const Frame& frame, const std::vector<EntityRecord>& records)
{
    QImage picture = frame.image().copy();
    GraffitPainter painter(k4K, {1, 0, 0, -1, 0, double(k4K.height())});
    for (const EntityRecord& record : records)
        painter.paint(picture, record, picture.rect());
    return picture;
}

void benchPicture(const std::shared_ptr<const Frame>& frame, BenchTable& table)
{
    Editor editor(frame);
    editor.drawMany(50);
    const std::vector<EntityRecord> records = editor.records();
    const auto floor = [&] { return ProcessorTime::of([&] { paintedBarely(*frame, records); }); };
    ProcessorTime::compare(
        {QStringLiteral("painting 50 annotations"), k4K, {}, 0, {}, 1.5}, kRounds, floor,
        [&] { return ProcessorTime::of([&] { paintedByUs(*frame, records); }); }, table);
    ProcessorTime::compare(
        {QStringLiteral("composing with 50 of them"), k4K, {}, 0, {}, 1.5}, kRounds, floor,
        [&] { return ProcessorTime::of([&] { editor.composed(); }); }, table);
}

}

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    BenchTable table;
    const auto frame = frozenScreen();
    {
        Editor few(frame), many(frame);
        few.drawMany(3);
        many.drawMany(300);
        ProcessorTime::compare(
            {QStringLiteral("drag step, 300 annotations or 3"), k4K, {}, 0, {}, 2}, kRounds,
            [&few] { return dragTime(few); }, [&many] { return dragTime(many); }, table);
    }
    {
        Editor editor(frame);
        ProcessorTime::compare(
            {QStringLiteral("stroke point, 20,000 before or 20"), k4K, {}, 0, {}, 2}, kRounds,
            [&editor] { return strokeTime(editor, 20); }, [&editor] { return strokeTime(editor, 20000); },
            table);
    }
    benchMovedRegion(frame, table);
    benchPicture(frame, table);
    return table.isKept() ? 0 : 1;
}
