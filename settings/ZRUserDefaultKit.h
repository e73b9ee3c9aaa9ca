#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

// Typed access to the process's standard store for keys that the older identifier's domain never answers.
// Without a store reads give the default, writes do nothing. Main thread only.
class ZRUserDefaultKit {
public:
    ZRUserDefaultKit() = delete;

    // Invalid, empty, false or zero when there is none; converted as ValueRules has it.
    static QVariant getFromUserDefaultsObject(const QString& key);
    static QByteArray getFromUserDefaultsData(const QString& key);
    static QString getFromUserDefaultsNSString(const QString& key, const QString& withDefaultValue = {});
    static bool getFromUserDefaultsBOOL(const QString& key, bool withDefaultValue = false);
    static qint64 getFromUserDefaultsInteger(const QString& key, qint64 withDefaultValue = 0);
    static double getFromUserDefaultsDouble(const QString& key, double withDefaultValue = 0);
    // Arrays are stored archived; one that cannot be unpacked gives the default.
    static QVariantList getFromUserDefaultsArray(
        const QString& key, const QVariantList& withDefaultValue = {});

    static void saveToUserDefaultsForKeyBOOLValue(const QString& key, bool value);
    static void saveToUserDefaultsForKeyIngeterValue(const QString& key, qint64 value);
    static void saveToUserDefaultsForKeyDoubleValue(const QString& key, double value);
    static void saveToUserDefaultsForKeyNSStringValue(const QString& key, const QString& value);
    static void saveToUserDefaultsForKeyArrayValue(const QString& key, const QVariantList& value);
    // An invalid value removes the key.
    static void saveToUserDefaultsForKeyObjectValue(const QString& key, const QVariant& value);
};
