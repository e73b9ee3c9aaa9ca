#pragma once

#include "editor/ZRGraffitManager.h"
#include "tests/fakes/Noise.h"

#include <QApplication>

#include <gtest/gtest.h>

// A frozen display of noise in which no two neighbours are alike.
inline std::shared_ptr<const Frame> noiseFrame(QSize pixels, double scale)
{
    DisplayRecord display;
    display.pixels = QRect({0, 0}, pixels);
    display.scale = scale;
    display.frame = {0, 0, pixels.width() / scale, pixels.height() / scale};
    return std::make_shared<Frame>(display, noiseImage(pixels));
}

// The editor over a region of a frozen display, driven by the events that the overlay would hand to it.
class EditorTest : public testing::Test, public RegionImageSource {
protected:
    explicit EditorTest(QSize pixels = {400, 300}, double scale = 1)
        : m_frame(noiseFrame(pixels, scale))
    {
        m_host.resize((QSizeF(pixels) / scale).toSize());
        m_host.setExactHeight(pixels.height() / scale);
        m_manager.setMainManager(this);
        m_manager.addGraffitViewTo(m_host, {});
        m_manager.updateGraffitView(kRegion);
    }

    std::shared_ptr<const Frame> frame() const override { return m_frame; }
    QImage getCurrentImageFromTheRegion(ZRRect rect) const override
    {
        return m_frame->crop(m_frame->display().localPixels(rect));
    }

    ZREditorView& view() { return *m_manager.editorView(); }
    // Places are points of the region.
    static ZRMouseEvent at(ZRPoint p, int clickCount = 1)
    {
        return {{p.x + kRegion.x, p.y + kRegion.y}, Qt::LeftButton, clickCount};
    }
    void click(ZRPoint place) { drag(place, place); }
    void drag(ZRPoint from, ZRPoint to)
    {
        view().mouseDown(at(from));
        view().mouseUp(at(to));
    }
    void draw(const char* tool, ZRPoint from, ZRPoint to)
    {
        m_manager.clearFocusOnGraffitView();
        m_manager.updateGraffitID(QLatin1String(tool));
        drag(from, to);
    }

    std::vector<EntityRecord> records() const { return m_manager.EditorRequest_getAllGraffitRect(); }
    size_t count() const { return records().size(); }
    QRect regionPixels() const { return m_frame->display().localPixels(kRegion); }
    // What would go out; the untouched frame without annotations.
    QImage picture() { return view().composed(regionPixels()); }
    // What the user sees of the display.
    QImage shown()
    {
        QImage image = m_frame->image().copy();
        image.setDevicePixelRatio(m_frame->display().scale);
        view().render(&image, {}, {}, QWidget::DrawChildren);
        image.setDevicePixelRatio(1);
        return image;
    }
    QImage untouched() const { return m_frame->image().copy(regionPixels()); }

    static constexpr ZRRect kRegion{40, 30, 300, 200};
    std::shared_ptr<const Frame> m_frame;
    View m_host;
    ZRGraffitManager m_manager;
};
