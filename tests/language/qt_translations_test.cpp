#include "language/qt_translations.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>

#include <tuple>

namespace Orvane {
namespace {

TEST(Locale_Of_Language, NamesInEnglishOrInTheLanguageItselfWithOrWithoutAccents)
{
    const std::pair<QString, QString> cases[] = {
        {"Français", "fr"}, {"Francais", "fr"}, {"FRANÇAIS", "fr"}, {"French", "fr"}, {"English", "en"},
        {" English ", "en"}, {"Deutsch", "de"}, {"Italiano", "it"},
    };
    for (const auto& [name, code] : cases) {
        const std::optional<QLocale> locale = Locale_Of_Language(name);
        ASSERT_TRUE(locale.has_value()) << name.toStdString();
        EXPECT_EQ(QLocale::languageToCode(locale->language()), code) << name.toStdString();
    }
    for (const QString name : {"", "Klingonesque", "Fr"})
        EXPECT_FALSE(Locale_Of_Language(name).has_value()) << name.toStdString();
}

QString Cancel_Button_Text()
{
    QMessageBox box(QMessageBox::Question, "Orvane", "?", QMessageBox::Ok | QMessageBox::Cancel);
    return box.button(QMessageBox::Cancel)->text();
}

TEST(Qt_Translations, MessageBoxButtonsSpeakTheInterfacesLanguageAndALaterChoiceReplacesIt)
{
    Qt_Translations translations;
    const std::tuple<QString, bool, QString> steps[] = {{"Français", true, "Annuler"}, {"English", true, "Cancel"},
        {"Francais", true, "Annuler"}, {"Klingonesque", false, "Cancel"}};
    for (const auto& [language, spoken, cancel] : steps) {
        SCOPED_TRACE(language.toStdString());
        EXPECT_EQ(translations.Install(language), spoken);
        EXPECT_EQ(Cancel_Button_Text().remove(u'&'), cancel);
    }
}

} // namespace
} // namespace Orvane
