#include "settings/ZRParserManager.h"

#include "settings/XMLParser.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {

using Parsers = std::vector<std::unique_ptr<XMLParser>>;

Parsers& parsers()
{
    static Parsers list;
    return list;
}

}

bool ZRParserManager::parseWithFilePath(const QString& path, XMLError* error)
{
    auto parser = std::make_unique<XMLParser>();
    if (!parser->parseWithFilePath(path, error))
        return false;
    if (!isExistWithParserIdentifier(parser->identifiter()))
        parsers().push_back(std::move(parser));
    return true;
}

bool ZRParserManager::isExistWithParserIdentifier(QStringView identifier)
{
    return getParserWithIdentifier(identifier) != nullptr;
}

const XMLParser* ZRParserManager::getParserWithIdentifier(QStringView identifier)
{
    const auto hasIdentifier = [identifier](
                                   const auto& parser) { return parser->identifiter() == identifier; };
    const auto found = std::find_if(parsers().begin(), parsers().end(), hasIdentifier);
    return found == parsers().end() ? nullptr : found->get();
}

void ZRParserManager::removeParserWithIdentifier(QStringView identifier)
{
    std::erase_if(
        parsers(), [identifier](const auto& parser) { return parser->identifiter() == identifier; });
}

void ZRParserManager::clearCache()
{
    parsers().clear();
}

QString ZRParserManager::getValueForKey(QStringView key, QStringView parserIdentifier)
{
    const XMLParser* parser = getParserWithIdentifier(parserIdentifier);
    return parser ? parser->getValueForkey(key) : QString();
}

QString ZRParserManager::getValueForkey(
    QStringView key, std::span<const QStringView> withSuperKeys, QStringView parserIdentifier)
{
    const XMLParser* parser = getParserWithIdentifier(parserIdentifier);
    return parser ? parser->getValueForkey(key, withSuperKeys) : QString();
}

QStringList ZRParserManager::getValuesForKey(QStringView key, QStringView parserIdentifier)
{
    const XMLParser* parser = getParserWithIdentifier(parserIdentifier);
    return parser ? parser->getValuesForKey(key) : QStringList();
}

QString ZRParserManager::getValueForKeywords(QStringView keywords, QStringView parserIdentifier)
{
    const XMLParser* parser = getParserWithIdentifier(parserIdentifier);
    return parser ? parser->getValueForKeywords(keywords) : QString();
}
