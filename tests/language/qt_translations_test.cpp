#include "language/qt_translations.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>

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
    const std::pair<QString, QString> steps[] = {{"Français", "&Annuler"}, {"English", "&Cancel"},
                                                 {"Francais", "&Annuler"}, {"Klingonesque", "&Cancel"}};
    for (const auto& [language, cancel] : steps) {
        translations.Install(language);
        EXPECT_EQ(Cancel_Button_Text().remove(u'&'), QString(cancel).remove(u'&')) << language.toStdString();
    }
}

TEST(Qt_Translations, ReportsWhetherTheLanguageIsSpoken)
{
    Qt_Translations translations;
    EXPECT_TRUE(translations.Install("Français"));
    EXPECT_TRUE(translations.Install("English"));
    EXPECT_FALSE(translations.Install("Klingonesque"));
}

} // namespace
} // namespace Orvane
