#include "editor/HandleRules.h"

#include <array>
#include <cstddef>

namespace {

// `column` and `row` place the handle in halves of the width and the height. The factors x and width are of
// the step's x, y and height of its y. `acrossWidth` and `acrossHeight` are the handles that take over when
// the size becomes zero or less. Kept: where both become so in one step, the height alone decides.
struct Handle {
    int direction;
    int column, row;
    int x, y, width, height;
    int acrossWidth, acrossHeight;
};
constexpr std::array<Handle, 8> kHandles{{
    {kTopLeft, 0, 2, 1, 0, -1, 1, kTopRight, kBottomLeft},
    {kTopMiddle, 1, 2, 0, 0, 0, 1, kNoHandle, kBottomMiddle},
    {kTopRight, 2, 2, 0, 0, 1, 1, kTopLeft, kBottomRight},
    {kMiddleLeft, 0, 1, 1, 0, -1, 0, kMiddleRight, kNoHandle},
    {kMiddleRight, 2, 1, 0, 0, 1, 0, kMiddleLeft, kNoHandle},
    {kBottomLeft, 0, 0, 1, 1, -1, -1, kBottomRight, kTopLeft},
    {kBottomMiddle, 1, 0, 0, 1, 0, -1, kNoHandle, kTopMiddle},
    {kBottomRight, 2, 0, 0, 1, 1, -1, kBottomLeft, kTopRight},
}};

const Handle* handleOf(int direction)
{
    const bool isHandle = direction >= kTopLeft && direction <= kBottomRight;
    return isHandle ? &kHandles[std::size_t(direction - kTopLeft)] : nullptr;
}

// Kept: two of the three right handles put the new left edge under the pointer, all others where they pulled
// it, which differs by what the press was off the handle's middle.
void turnWidth(HandleRules::Grab& grab, const Handle& handle, ZRPoint pointer)
{
    ZRRect& r = grab.rect;
    const bool isUnderPointer = handle.direction == kTopRight || handle.direction == kMiddleRight;
    r.x = isUnderPointer ? pointer.x : r.x + r.width;
    r.width = -r.width;
    grab.direction = handle.acrossWidth;
}

}

ZRPoint HandleRules::handlePoint(ZRRect rect, int direction)
{
    const Handle* handle = handleOf(direction);
    if (!handle)
        return {};
    return {rect.x + rect.width * handle->column / 2, rect.y + rect.height * handle->row / 2};
}

ZRRect HandleRules::handleSquare(ZRPoint point)
{
    return {point.x - kHandleSize / 2, point.y - kHandleSize / 2, kHandleSize, kHandleSize};
}

int HandleRules::handleAt(ZRRect rect, ZRPoint point)
{
    for (int direction = kTopLeft; direction <= kBottomRight; ++direction)
        if (handleSquare(handlePoint(rect, direction)).contains(point))
            return direction;
    return kNoHandle;
}

HandleRules::Grab HandleRules::pulled(Grab grab, ZRPoint by, ZRPoint pointer)
{
    const Handle* handle = handleOf(grab.direction);
    if (!handle)
        return grab;
    ZRRect& r = grab.rect;
    r.x += handle->x * by.x;
    r.y += handle->y * by.y;
    r.width += handle->width * by.x;
    r.height += handle->height * by.y;
    if (handle->acrossWidth != kNoHandle && r.width <= 0)
        turnWidth(grab, *handle, pointer);
    if (handle->acrossHeight != kNoHandle && r.height <= 0) {
        r.y += r.height;
        r.height = -r.height;
        grab.direction = handle->acrossHeight;
    }
    return grab;
}
