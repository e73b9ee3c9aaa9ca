#include "settings/ZRUserDefaultKit.h"

#include "settings/PropertyList.h"
#include "settings/UserDefaults.h"
#include "settings/ValueRules.h"

QVariant ZRUserDefaultKit::getFromUserDefaultsObject(const QString& key)
{
    const UserDefaults* store = UserDefaults::standardUserDefaults();
    return store ? store->objectForKey(key) : QVariant();
}

QByteArray ZRUserDefaultKit::getFromUserDefaultsData(const QString& key)
{
    return ValueRules::dataValue(getFromUserDefaultsObject(key));
}

QString ZRUserDefaultKit::getFromUserDefaultsNSString(const QString& key, const QString& withDefaultValue)
{
    return ValueRules::formatted(getFromUserDefaultsObject(key)).value_or(withDefaultValue);
}

bool ZRUserDefaultKit::getFromUserDefaultsBOOL(const QString& key, bool withDefaultValue)
{
    const QVariant value = getFromUserDefaultsObject(key);
    return value.isValid() ? ValueRules::boolValue(value) : withDefaultValue;
}

qint64 ZRUserDefaultKit::getFromUserDefaultsInteger(const QString& key, qint64 withDefaultValue)
{
    const QVariant value = getFromUserDefaultsObject(key);
    return value.isValid() ? ValueRules::integerValue(value) : withDefaultValue;
}

double ZRUserDefaultKit::getFromUserDefaultsDouble(const QString& key, double withDefaultValue)
{
    const QVariant value = getFromUserDefaultsObject(key);
    return value.isValid() ? ValueRules::doubleValue(value) : withDefaultValue;
}

QVariantList ZRUserDefaultKit::getFromUserDefaultsArray(
    const QString& key, const QVariantList& withDefaultValue)
{
    const QByteArray archive = getFromUserDefaultsData(key);
    QString reason;
    const std::optional<QVariant> array = PropertyList::parsed(archive, &reason);
    return array && array->typeId() == QMetaType::QVariantList ? array->toList() : withDefaultValue;
}

void ZRUserDefaultKit::saveToUserDefaultsForKeyBOOLValue(const QString& key, bool value)
{
    saveToUserDefaultsForKeyObjectValue(key, value);
}

void ZRUserDefaultKit::saveToUserDefaultsForKeyIngeterValue(const QString& key, qint64 value)
{
    saveToUserDefaultsForKeyObjectValue(key, value);
}

void ZRUserDefaultKit::saveToUserDefaultsForKeyDoubleValue(const QString& key, double value)
{
    saveToUserDefaultsForKeyObjectValue(key, value);
}

void ZRUserDefaultKit::saveToUserDefaultsForKeyNSStringValue(const QString& key, const QString& value)
{
    saveToUserDefaultsForKeyObjectValue(key, value);
}

void ZRUserDefaultKit::saveToUserDefaultsForKeyArrayValue(const QString& key, const QVariantList& value)
{
    saveToUserDefaultsForKeyObjectValue(key, PropertyList::binary(value));
}

void ZRUserDefaultKit::saveToUserDefaultsForKeyObjectValue(const QString& key, const QVariant& value)
{
    if (UserDefaults* store = UserDefaults::standardUserDefaults())
        store->setObject(value, key);
}
