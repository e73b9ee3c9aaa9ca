#include "app/ShortcutRules.h"

#include "app/HotKeyTables.h"

#include <QHash>
#include <QStringList>

namespace {

constexpr int kFunctionKeys = 15;

struct Modifier {
    quint32 flag;
    Qt::KeyboardModifier held;
    const char16_t* word;
    char16_t symbol;
};
constexpr Modifier kModifiers[] = {
    // as they are written and shown
    {ShortcutRules::kControl, Qt::ControlModifier, u"ctrl", u'\u2303'},
    {ShortcutRules::kOption, Qt::AltModifier, u"alt", u'\u2325'},
    {ShortcutRules::kShift, Qt::ShiftModifier, u"shift", u'\u21e7'},
    {ShortcutRules::kCommand, Qt::MetaModifier, u"cmd", u'\u2318'},
};

using KeyMap = QHash<quint32, QString>;

KeyMap initKeyMap()
{
    KeyMap map{{33, QStringLiteral("[")}, {30, QStringLiteral("]")}};
    QStringList words =
        QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789,./").split(QString(), Qt::SkipEmptyParts);
    for (int number = 1; number <= kFunctionKeys; ++number)
        words << QStringLiteral("f%1").arg(number);
    for (const QString& word : words)
        if (const auto code = HotKeyTables::keyCode(word))
            map.insert(*code, word);
    return map;
}

}

QString ShortcutRules::keyText(quint32 keyCode)
{
    static const KeyMap map = initKeyMap();
    return map.value(keyCode);
}

quint32 ShortcutRules::modifierFlags(Qt::KeyboardModifiers held)
{
    quint32 flags = 0;
    for (const Modifier& modifier : kModifiers)
        if (held.testFlag(modifier.held))
            flags |= modifier.flag;
    return flags;
}

QString ShortcutRules::symbols(quint32 flags)
{
    QString symbols;
    for (const Modifier& modifier : kModifiers)
        if (flags & modifier.flag)
            symbols += QChar(modifier.symbol);
    return symbols;
}

QString ShortcutRules::hotKeyString(const QString& keyText, quint32 flags)
{
    QString hotKey;
    for (const Modifier& modifier : kModifiers)
        if (flags & modifier.flag)
            hotKey += QString::fromUtf16(modifier.word) + QLatin1Char(' ');
    return hotKey + keyText;
}

QString ShortcutRules::capitalized(const QString& hotKey)
{
    QStringList words = hotKey.split(QLatin1Char(' '));
    for (QString& word : words)
        word = word.left(1).toUpper() + word.mid(1).toLower();
    return words.join(QLatin1Char('+'));
}
