#include "capture/WindowWalk.h"

#include "capture/WindowRules.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kNotch = 120;   // eighths of a degree
constexpr double kTremor = 4; // points

std::vector<ZRRect> stackAt(const std::vector<ZRRect>& candidates, ZRPoint point)
{
    std::vector<ZRRect> stack;
    for (const ZRRect& rect : candidates)
        if (rect.contains(point) && (stack.empty() || stack.back() != rect))
            stack.push_back(rect);
    return stack;
}

}

void WindowWalk::turn(const std::vector<ZRRect>& candidates, ZRPoint point, int angle)
{
    if (!holdsAt(point)) {
        reset();
        m_place = point;
    }
    m_angle += angle;
    const int notches = m_angle / kNotch;
    m_angle %= kNotch;
    const auto size = int(stackAt(candidates, point).size());
    m_depth = size_t(std::clamp(int(m_depth) + notches, 0, std::max(0, size - 1)));
}

std::optional<ZRRect> WindowWalk::meant(const std::vector<ZRRect>& candidates, ZRPoint point) const
{
    if (!holdsAt(point))
        return WindowRules::recognised(candidates, point);
    const std::vector<ZRRect> stack = stackAt(candidates, point);
    return stack.empty() ? std::nullopt : std::optional(stack[std::min(m_depth, stack.size() - 1)]);
}

bool WindowWalk::holdsAt(ZRPoint point) const
{
    return m_place && std::abs(point.x - m_place->x) <= kTremor && std::abs(point.y - m_place->y) <= kTremor;
}
