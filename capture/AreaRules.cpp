#include "capture/AreaRules.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

const QLatin1Char kAt('@');

qint64 area(QRect r)
{
    return qint64(r.width()) * r.height();
}

QRect wholeOf(const DisplayRecord& display)
{
    return {QPoint(0, 0), display.pixels.size()};
}

}

std::optional<AreaRules::Geometry> AreaRules::parsed(QStringView text)
{
    static const QRegularExpression form(
        QStringLiteral("^([0-9]{1,5})x([0-9]{1,5})([+-])(-?[0-9]{1,5})([+-])(-?[0-9]{1,5})$"));
    const QRegularExpressionMatch match = form.match(text.toString());
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    const QSize size(number(1), number(2));
    if (!match.hasMatch() || size.isEmpty())
        return std::nullopt;
    const auto isMinus = [&match](int group) { return match.captured(group) == QLatin1String("-"); };
    return Geometry{size, {number(4), number(6)}, isMinus(3), isMinus(5)};
}

QRect AreaRules::placed(const Geometry& geometry, QRect virtualScreen)
{
    const auto [size, offset, isFromRight, isFromBottom] = geometry;
    const QSize room = virtualScreen.size() - size;
    const int x = isFromRight ? room.width() - offset.x() : offset.x();
    const int y = isFromBottom ? room.height() - offset.y() : offset.y();
    return {virtualScreen.topLeft() + QPoint(x, y), size};
}

QString AreaRules::text(QRect pixels)
{
    return QStringLiteral("%1x%2+%3+%4")
        .arg(pixels.width())
        .arg(pixels.height())
        .arg(pixels.x())
        .arg(pixels.y());
}

std::optional<CaptureArea> AreaRules::onMainDisplay(QRect pixels, const std::vector<DisplayRecord>& displays)
{
    const auto held = [pixels](const DisplayRecord& display) { return area(pixels & display.pixels); };
    const auto most = std::ranges::max_element(displays, {}, held);
    if (most == displays.end() || held(*most) == 0)
        return std::nullopt;
    return CaptureArea{*most, (pixels & most->pixels).translated(-most->pixels.topLeft())};
}

std::optional<DisplayRecord> AreaRules::displayNamed(
    const QString& name, const std::vector<DisplayRecord>& displays)
{
    const auto found = std::ranges::find(displays, name, &DisplayRecord::name);
    if (found != displays.end())
        return *found;
    bool isNumber = false;
    const uint number = name.toUInt(&isNumber);
    return isNumber && number >= 1 && number <= displays.size() ? std::optional(displays[number - 1])
                                                                : std::nullopt;
}

QString AreaRules::list(const std::vector<DisplayRecord>& displays, QRect virtualScreen)
{
    QStringList names;
    for (const DisplayRecord& display : displays)
        names += QStringLiteral("%1 %2 %3")
                     .arg(names.size() + 1)
                     .arg(display.name, text(display.pixels.translated(-virtualScreen.topLeft())));
    return names.join(QStringLiteral(", "));
}

QString AreaRules::stored(const CaptureArea& area)
{
    return text(area.pixels) + kAt + area.display.name;
}

std::optional<CaptureArea> AreaRules::restored(
    const QString& text, const std::vector<DisplayRecord>& displays)
{
    const auto display = std::ranges::find(displays, text.section(kAt, 1), &DisplayRecord::name);
    const auto geometry = parsed(text.section(kAt, 0, 0));
    if (display == displays.end() || !geometry)
        return std::nullopt;
    const QRect pixels = placed(*geometry, wholeOf(*display));
    return wholeOf(*display).contains(pixels) ? std::optional(CaptureArea{*display, pixels}) : std::nullopt;
}
