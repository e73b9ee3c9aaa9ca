#pragma once

#include "editor/HitRules.h"
#include "editor/ShapeRules.h"
#include "editor/ZRBasicCustomView.h"

// What arrow and line have in common beyond their bases: only the first and the last drag point count, and
// each of the two ends can be dragged on its own.
template <class Base>
class EndPoints : public Base {
public:
    ZRRect sizeToFit() override
    {
        this->setVctualRect(ShapeRules::lineRect(start(), end(), this->lineWidth()));
        return this->vctualRect();
    }

    bool isClickOn(ZRPoint point) override
    {
        return HitRules::hitsLine(this->vctualRect(), start(), end(), this->lineWidth(), point);
    }

    void mouseDown(ZRPoint point) override
    {
        if (isEditable())
            replaceIndex = endAt(point);
        Base::mouseDown(point);
    }

    void mouseDragged(ZRPoint point) override
    {
        if (!isEditable())
            return Base::mouseDragged(point);
        if (replaceIndex < 0)
            return this->moveBy(this->stepTo(point));
        this->replacePoint(size_t(replaceIndex), point);
        sizeToFit();
    }

    void mouseUp(ZRPoint) override { replaceIndex = kWhole; }

protected:
    void moveBy(ZRPoint step) override
    {
        const ZRPoint oldStart = start();
        const ZRPoint oldEnd = end();
        this->replacePoint(0, {oldStart.x + step.x, oldStart.y + step.y});
        this->replacePoint(lastIndex(), {oldEnd.x + step.x, oldEnd.y + step.y});
        sizeToFit();
    }

private:
    static constexpr qint32 kWhole = -1;

    size_t lastIndex() const { return this->dragPoints().size() - 1; }
    ZRPoint start() const { return this->getPointWithIndex(0); }
    ZRPoint end() const { return this->getPointWithIndex(lastIndex()); }
    bool isEditable() const { return this->isDrawDone() && this->isFocusOn() && !this->dragPoints().empty(); }

    qint32 endAt(ZRPoint point) const
    {
        if (HitRules::isWithin(start(), this->lineWidth(), point))
            return 0;
        return HitRules::isWithin(end(), this->lineWidth(), point) ? qint32(lastIndex()) : kWhole;
    }

    qint32 replaceIndex = kWhole; // of the end that is dragged
};
