#pragma once

#include "editor/ZRBasicCustomView.h"

#include <optional>

// What undo needs beyond the annotations' own rectangles, in the order in which the user did it: the points
// that a press found, the annotations that were taken away, and what undo itself took away. Borrows the
// annotations in the list and owns those that are not.
class GraffitHistory {
public:
    // A press on an annotation, or the one that made it.
    void pressed(const ZRBasicCustomView& entity);
    bool knows(const ZRBasicCustomView& entity) const;
    // Eraser or delete key took an annotation from this place of the list.
    void removed(std::unique_ptr<ZRBasicCustomView> entity, size_t index);
    // From now on there is nothing to redo.
    void changed() { m_undone.clear(); }
    void clear();

    // Whether the latest thing that the user did and that is not undone took an annotation away.
    bool isRemovalLast() const { return !m_done.empty() && m_done.back().removed; }
    struct Place {
        std::unique_ptr<ZRBasicCustomView> entity;
        size_t index = 0;
    };
    // The annotation that the latest removal took; from now on the removal can be redone.
    Place takeRemoved();
    // The latest press on an annotation is undone: the points that it found.
    DragPoints takePress(const ZRBasicCustomView& entity);

    // One undone thing: `entity` was pressed and then had these points and this rectangle; or it was made and
    // is owned; or it is to be taken away again.
    struct Undone {
        enum class Kind { Pressed, Made, Removed } kind = Kind::Pressed;
        ZRBasicCustomView* entity = nullptr;
        DragPoints points = {};
        ZRRect rect = {};
        std::unique_ptr<ZRBasicCustomView> made = nullptr;
    };
    void undone(Undone step) { m_undone.push_back(std::move(step)); }
    std::optional<Undone> takeUndone();
    // A press or a making is done again; unlike pressed() it leaves the rest to redo.
    void pressedAgain(const ZRBasicCustomView& entity);
    void removedAgain(std::unique_ptr<ZRBasicCustomView> entity, size_t index);

    // The space in which points and rectangles are counted has moved.
    void shift(double dx, double dy);

private:
    struct Done {
        const ZRBasicCustomView* pressed = nullptr;
        DragPoints points = {}; // of before the press
        std::unique_ptr<ZRBasicCustomView> removed = nullptr;
        size_t index = 0;
    };

    std::vector<Done> m_done;
    std::vector<Undone> m_undone;
};
