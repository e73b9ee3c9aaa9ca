#pragma once

#include "service/Secrets.h"

#include <functional>
#include <string>
#include <vector>

// What is remembered of askers, in memory that does not grow with their number: each name has one of 16384
// slots, which a stranger cannot foretell. Two names that meet in one share it.
template <typename Slot>
class SlotTable {
public:
    Slot& of(const std::string& name)
    {
        return m_slots[std::hash<std::string>()(m_seed + name) % m_slots.size()];
    }

private:
    const std::string m_seed = Secrets::unguessableName();
    std::vector<Slot> m_slots = std::vector<Slot>(16384);
};
