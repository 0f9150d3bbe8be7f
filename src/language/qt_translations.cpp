#include "language/qt_translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QRegularExpression>

namespace Orvane {

namespace {

// Lower case, accents dropped: "Français" and "francais" meet.
QString Plain(const QString& name)
{
    QString plain;
    for (const QChar c : name.normalized(QString::NormalizationForm_D)) {
        if (c.category() != QChar::Mark_NonSpacing)
            plain.append(c.toCaseFolded());
    }
    return plain.trimmed();
}

} // namespace

std::optional<QLocale> Locale_Of_Language(const QString& language_name)
{
    // A locale code as the language file gives it: "fr", "pt_BR".
    static const QRegularExpression code(QStringLiteral("^[a-z]{2,3}([_-][A-Z]{2})?$"));
    if (code.match(language_name.trimmed()).hasMatch()) {
        const QLocale locale(language_name.trimmed());
        if (locale.language() != QLocale::C)
            return locale;
    }
    const QString wanted = Plain(language_name);
    if (wanted.isEmpty())
        return std::nullopt;
    for (int code = QLocale::AnyLanguage + 1; code <= QLocale::LastLanguage; ++code) {
        const auto language = QLocale::Language(code);
        if (Plain(QLocale::languageToString(language)) == wanted)
            return QLocale(language);
        const QLocale locale(language);
        if (locale.language() == language && Plain(locale.nativeLanguageName()) == wanted)
            return locale;
    }
    return std::nullopt;
}

Qt_Translations::~Qt_Translations()
{
    Remove();
}

bool Qt_Translations::Install(const QString& language_name)
{
    Remove();
    const std::optional<QLocale> locale = Locale_Of_Language(language_name);
    if (!locale)
        return false;
    // English is the toolkit's own language: nothing to load.
    if (locale->language() == QLocale::English)
        return true;
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(*locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return false;
    QCoreApplication::installTranslator(translator.get());
    translator_ = std::move(translator);
    return true;
}

void Qt_Translations::Remove()
{
    if (!translator_)
        return;
    QCoreApplication::removeTranslator(translator_.get());
    translator_.reset();
}

} // namespace Orvane
