#pragma once

#include <QLocale>
#include <QString>
#include <QTranslator>
#include <memory>
#include <optional>

namespace Orvane {

// The locale of a language: a locale code ("fr", "pt_BR", as the language
// file gives it), or its name as the language file and the configuration
// give it ("Français", "Francais", "English", "Deutsch"...): its name in English
// or in itself, compared without case or accents. Nothing for a name no
// language has.
std::optional<QLocale> Locale_Of_Language(const QString& language_name);

// The toolkit's own texts (the buttons of message boxes, the labels of the
// file dialogs) in the interface's language, from the translations the
// system installs for Qt. Installing another language replaces the first.
class Qt_Translations {
public:
    Qt_Translations() = default;
    ~Qt_Translations();
    Qt_Translations(const Qt_Translations&) = delete;
    Qt_Translations& operator=(const Qt_Translations&) = delete;

    // False when the language is unknown or has no translation on this
    // system; the toolkit then speaks English.
    bool Install(const QString& language_name);

private:
    void Remove();

    std::unique_ptr<QTranslator> translator_;
};

} // namespace Orvane
