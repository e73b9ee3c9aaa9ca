#pragma once

#include <QTranslator>

// Names keys as they are printed on keyboards. Installed once, before the first key is shown.
class KeyNames final : public QTranslator {
public:
    // "Super" for what Qt calls "Meta"; empty for every other text, which then stays as it is.
    QString translate(const char* context, const char* sourceText, const char* disambiguation = nullptr,
        int number = -1) const override;
    bool isEmpty() const override { return false; }
};
