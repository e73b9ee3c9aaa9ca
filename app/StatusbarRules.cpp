#include "app/StatusbarRules.h"

#include "platform/KeyPosition.h"
#include "settings/AppSettings.h"

namespace {

const QString kHover = QStringLiteral("-hover");

struct Modifier {
    quint32 flag; // as AppSettings has it
    Qt::KeyboardModifier modifier;
};
const Modifier kModifiers[] = {
    {0x20000, Qt::ShiftModifier},
    {0x40000, controlModifier()},
    {0x80000, Qt::AltModifier},
    {0x100000, commandModifier()},
};

Qt::Key keyOf(const QString& word)
{
    if (word == QLatin1String("bkspc"))
        return Qt::Key_Backspace;
    const QKeySequence sequence = QKeySequence::fromString(word, QKeySequence::PortableText);
    return sequence.isEmpty() ? Qt::Key_unknown : sequence[0].key();
}

}

QString StatusbarRules::restingImage(const QString& imageName)
{
    return QString(imageName).remove(kHover);
}

QString StatusbarRules::highlightedImage(const QString& imageName, bool isInTools)
{
    if (isInTools)
        return QString(imageName).replace(QLatin1String("hover"), QLatin1String("normal"));
    return imageName + kHover;
}

QKeySequence StatusbarRules::keyEquivalent(const QString& hotKey)
{
    const Qt::Key key = keyOf(AppSettings::getKeyValueOfShortcut(hotKey).toLower());
    if (key == Qt::Key_unknown)
        return {};
    const quint32 flags = AppSettings::getModifiterFlagsValueOfShortcut(hotKey);
    Qt::KeyboardModifiers modifiers;
    for (const Modifier& m : kModifiers)
        if (flags & m.flag)
            modifiers |= m.modifier;
    return QKeySequence(QKeyCombination(modifiers, key));
}
