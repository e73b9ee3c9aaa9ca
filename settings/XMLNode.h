#pragma once

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

// One element of a language file: a text, or a group of further elements. Owns its children.
class XMLNode {
public:
    using Nodes = std::vector<std::unique_ptr<XMLNode>>;

    // A null value stands for none, as a group has; an empty text is one.
    XMLNode(QString key, QString value, XMLNode* parent);

    const QString& key() const { return m_key; }
    const QString& value() const { return m_value; }
    // Null for the root.
    const XMLNode* parent() const { return m_parent; }
    // In the file's order.
    const Nodes& childs() const { return m_childs; }
    // The new child, which belongs to this node.
    XMLNode& addChild(QString key, QString value);

    // This node or the first one below it, depth first, of that key; null when there is none.
    const XMLNode* firstOf(QStringView key) const;

    // While its element is open, a node takes children.
    void startEditing() { m_isEditing = true; }
    bool isEditing() const { return m_isEditing; }
    void endEditing() { m_isEditing = false; }

private:
    QString m_key;
    QString m_value;
    XMLNode* m_parent;
    Nodes m_childs;
    bool m_isEditing = false;
};
