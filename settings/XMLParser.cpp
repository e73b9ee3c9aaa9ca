#include "settings/XMLParser.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QVarLengthArray>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace {

bool failed(XMLError* error, QLatin1String domain, int code, const QString& message)
{
    *error = {domain, code, message};
    return false;
}

// What the reader would take, or would take long over: attributes of one element cost it the square of their
// number, and a document type can declare entities that unfold without end.
QString problemOf(const QByteArray& bytes)
{
    if (bytes.size() > XMLParser::kLargest)
        return QStringLiteral("larger than %1 bytes").arg(XMLParser::kLargest);
    if (bytes.contains('\0'))
        return QStringLiteral("not in UTF-8");
    for (qsizetype start = 0; start < bytes.size();) {
        const qsizetype next = bytes.indexOf('<', start + 1);
        const qsizetype end = next < 0 ? bytes.size() : next;
        if (end - start > XMLParser::kLongestPiece)
            return QStringLiteral("a tag and its text are longer than %1 bytes")
                .arg(XMLParser::kLongestPiece);
        if (QByteArrayView(bytes).sliced(start).startsWith("<!DOCTYPE"))
            return QStringLiteral("it has a document type");
        start = end;
    }
    return {};
}

bool isUtf8(QStringView encoding)
{
    return encoding.isEmpty() || encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0;
}

}

bool XMLParser::parseWithFilePath(const QString& path, XMLError* error)
{
    if (path.isEmpty())
        return failed(error, XMLError::kUrlDomain, XMLError::kNoUrl, QStringLiteral("no path"));
    QFile file(path);
    const bool isFile = QFileInfo(path).isFile(); // a pipe would wait for its other end
    if (!isFile || !file.open(QIODevice::ReadOnly))
        return failed(error, XMLError::kXmlDomain, XMLError::kNoParser,
            QStringLiteral("init Parser failed: %1")
                .arg(isFile ? file.errorString() : QStringLiteral("there is no such file")));
    if (!parse(file.read(std::min(file.size(), kLargest) + 1), error))
        return false;
    m_identifiter = QFileInfo(path).completeBaseName();
    return true;
}

bool XMLParser::parse(const QByteArray& bytes, XMLError* error)
{
    reset();
    if (const QString problem = problemOf(bytes); !problem.isEmpty())
        return failed(error, XMLError::kXmlDomain, XMLError::kOutOfBounds, problem);
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    read(reader);
    m_openNodes.clear();
    if (!reader.hasError())
        return true;
    reset();
    return failed(error, XMLError::kXmlDomain, reader.error(),
        QStringLiteral("%1 (line %2)").arg(reader.errorString()).arg(reader.lineNumber()));
}

void XMLParser::read(QXmlStreamReader& reader)
{
    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
        if (token == QXmlStreamReader::StartDocument && !isUtf8(reader.documentEncoding()))
            reader.raiseError(QStringLiteral("not in UTF-8"));
        else if (token == QXmlStreamReader::StartElement)
            didStartElement(reader);
        else if (token == QXmlStreamReader::Characters)
            foundCharacters(reader.text());
        else if (token == QXmlStreamReader::EndElement)
            didEndElement(reader.qualifiedName());
        if (depth > kDeepest || m_openNodes.size() > kDeepest)
            reader.raiseError(QStringLiteral("nested too deeply"));
    }
}

void XMLParser::didStartElement(const QXmlStreamReader& reader)
{
    const QStringView name = reader.qualifiedName();
    m_elementName.setUnicode(name.data(), name.size());
    m_isInElement = true;
    m_hasLineBreak = false;
    m_text = QStringLiteral("");
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        m_table.insert_or_assign(attribute.qualifiedName().toString(), attribute.value().toString());
}

void XMLParser::foundCharacters(QStringView characters)
{
    m_hasLineBreak = m_hasLineBreak || characters.contains(u'\n');
    if (!m_hasLineBreak)
        m_text.append(characters);
    else if (std::exchange(m_isInElement, false))
        open(m_elementName, QString());
}

void XMLParser::didEndElement(QStringView elementName)
{
    m_isInElement = false;
    if (!m_hasLineBreak && !m_openNodes.empty())
        open(elementName.toString(), m_text);
    close(elementName);
}

// Into the innermost node that takes children; a root where no node is open.
void XMLParser::open(const QString& key, const QString& value)
{
    XMLNode* node = nullptr;
    if (m_openNodes.empty()) {
        node = m_roots.emplace_back(std::make_unique<XMLNode>(key, value, nullptr)).get();
        m_table.insert_or_assign(key, node);
    } else {
        node = &m_openNodes.back()->addChild(key, value);
    }
    node->startEditing();
    m_openNodes.push_back(node);
}

// The innermost open node of that key; nodes within it stay open.
void XMLParser::close(QStringView key)
{
    const auto hasKey = [key](const XMLNode* node) { return node->key() == key; };
    const auto found = std::find_if(m_openNodes.rbegin(), m_openNodes.rend(), hasKey);
    if (found == m_openNodes.rend())
        return;
    (*found)->endEditing();
    m_openNodes.erase(std::next(found).base());
}

void XMLParser::reset()
{
    m_openNodes.clear();
    m_table.clear();
    m_roots.clear();
    m_identifiter.clear();
}

QString XMLParser::getValueForkey(QStringView key) const
{
    const auto entry = m_table.find(key);
    const QString* value = entry == m_table.end() ? nullptr : std::get_if<QString>(&entry->second);
    return value ? *value : QString();
}

QString XMLParser::getValueForkey(QStringView key, std::span<const QStringView> withSuperKeys) const
{
    const XMLNode* node = root();
    if (!node)
        return {};
    for (const QStringView superKey : withSuperKeys) {
        node = getSubNodeFormPerentChilds(node->childs(), superKey);
        if (!node)
            return {};
        if (node->key() == key)
            return node->value();
    }
    return getValueFormNode(*node, key);
}

QString XMLParser::getValueForKeywords(QStringView keywords) const
{
    if (!keywords.contains(u':'))
        return getValueForkey(keywords);
    QVarLengthArray<QStringView, 8> superKeys;
    for (const QStringView part : keywords.tokenize(u':'))
        superKeys.append(part);
    return getValueForkey(superKeys.last(), superKeys);
}

QStringList XMLParser::getValuesForKey(QStringView key) const
{
    QStringList values;
    const XMLNode* top = root();
    if (!top)
        return values;
    for (const auto& child : top->childs())
        if (const XMLNode* found = child->firstOf(key); found && !found->value().isNull())
            values.append(found->value());
    return values;
}

QString XMLParser::getValueFormNode(const XMLNode& node, QStringView withKey)
{
    const XMLNode* child = getSubNodeFormPerentChilds(node.childs(), withKey);
    return child ? child->value() : QString();
}

const XMLNode* XMLParser::getSubNodeFormPerentChilds(const XMLNode::Nodes& childs, QStringView withKey)
{
    const auto hasKey = [withKey](const auto& child) { return child->key() == withKey; };
    const auto found = std::find_if(childs.begin(), childs.end(), hasKey);
    return found == childs.end() ? nullptr : found->get();
}

const XMLNode* XMLParser::root() const
{
    for (const auto& [name, entry] : m_table)
        if (const auto* node = std::get_if<const XMLNode*>(&entry))
            return *node;
    return nullptr;
}
