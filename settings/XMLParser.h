#pragma once

#include "settings/XMLError.h"
#include "settings/XMLNode.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <map>
#include <memory>
#include <span>
#include <variant>
#include <vector>

class QByteArray;
class QXmlStreamReader;

// One language file as a tree of texts and a flat table of all its attributes.
//
// Kept: an element is a group exactly when a line break lies in it before its first child, and a text with a
// line break is lost; so each child stands on a line of its own. An element whose end shares the line with
// its last child's end makes a text of its own name in itself and stays open.
//
// Lookups answer a null text where there is none, and allocate nothing.
class XMLParser {
public:
    static constexpr qsizetype kLargest = 262'144;    // bytes of a file
    static constexpr qsizetype kLongestPiece = 8'192; // bytes between two "<": a tag and the text after it
    static constexpr int kDeepest = 64;               // open groups

    // Reads a file in UTF-8 of bounded size and depth, without a document type. False, and the reason, when
    // it is anything else; the parser is then empty.
    bool parseWithFilePath(const QString& path, XMLError* error);
    bool parse(const QByteArray& bytes, XMLError* error);
    // The name of the file without folder and extension; of a file that could be read.
    const QString& identifiter() const { return m_identifiter; }

    // The value of the last attribute of that name, whichever element has it.
    QString getValueForkey(QStringView key) const;
    // Walks down from the root, whose own name is no part of the way. The first node on the way that bears
    // the key answers, else the child of that key of the last one.
    QString getValueForkey(QStringView key, std::span<const QStringView> withSuperKeys) const;
    // "Group:Key", groups may nest; without ":" an attribute.
    QString getValueForKeywords(QStringView keywords) const;
    // Of each child of the root the first text of that key, at any depth, where it has one.
    QStringList getValuesForKey(QStringView key) const;

private:
    using Entry = std::variant<QString, const XMLNode*>; // an attribute's value or a root

    static QString getValueFormNode(const XMLNode& node, QStringView withKey);
    static const XMLNode* getSubNodeFormPerentChilds(const XMLNode::Nodes& childs, QStringView withKey);
    const XMLNode* root() const;

    void read(QXmlStreamReader& reader);
    void didStartElement(const QXmlStreamReader& reader);
    void foundCharacters(QStringView characters);
    void didEndElement(QStringView elementName);
    void open(const QString& key, const QString& value);
    void close(QStringView key);
    void reset();

    QString m_identifiter;
    XMLNode::Nodes m_roots;
    std::map<QString, Entry, std::less<>> m_table; // of one name the last one holds

    // While a file is read.
    QString m_elementName;
    bool m_isInElement = false; // an element has begun that is neither a group yet nor ended
    QString m_text;             // since the last element began, as long as it has no line break
    bool m_hasLineBreak = false;
    std::vector<XMLNode*> m_openNodes; // outermost first
};
