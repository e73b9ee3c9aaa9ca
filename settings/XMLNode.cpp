#include "settings/XMLNode.h"

#include <utility>

XMLNode::XMLNode(QString key, QString value, XMLNode* parent)
    : m_key(std::move(key))
    , m_value(std::move(value))
    , m_parent(parent)
{
}

XMLNode& XMLNode::addChild(QString key, QString value)
{
    return *m_childs.emplace_back(std::make_unique<XMLNode>(std::move(key), std::move(value), this));
}

const XMLNode* XMLNode::firstOf(QStringView key) const
{
    if (m_key == key)
        return this;
    for (const auto& child : m_childs)
        if (const XMLNode* found = child->firstOf(key))
            return found;
    return nullptr;
}
