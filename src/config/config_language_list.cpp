#include "config/config_language_list.h"

#include "ui/option_pair.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"

namespace Orvane {

Config_Language_List::Config_Language_List(QWidget* frame, Skin_Label* scroll, const QStringList& languages)
    : QObject(frame), frame_(frame), list_(new QWidget(frame)), languages_(languages)
{
    list_->setObjectName(QStringLiteral("Pic_Langue"));
    list_->setGeometry(0, 0, frame->width(), std::max(1, int(languages.size())) * Line_Height);
    for (int line = 0; line < languages.size(); ++line) {
        const QString language = languages[line];
        auto* option = new Option_Pair(QStringLiteral("Img_Option_Lang_%1").arg(line), list_);
        option->move(6, line * Line_Height + 3);
        auto* name = new Skin_Label(language, list_);
        name->setObjectName(QStringLiteral("Lbl_Nom_Lang_%1").arg(line));
        name->setGeometry(28, line * Line_Height + 1, frame->width() - 34, Line_Height - 2);
        name->setFont(Skin_Palette::Label_Font(12));
        name->Set_Clickable(true);
        name->Set_Colors(Skin_Palette::Display_Text, Skin_Palette::Panel_Hover);
        option->setAccessibleName(language);  // the option stands for the line
        // The mark follows the choice: a release on an option picks its
        // language rather than toggling it.
        connect(option, &Option_Pair::Toggled, this, [this, language] { emit Chosen(language); });
        connect(name, &Skin_Label::Clicked, this, [this, language] { emit Chosen(language); });
        options_.push_back(option);
        names_.push_back(name);
    }
    const bool needs_scrolling = list_->height() > frame->height();
    scroll->setVisible(needs_scrolling);
    scroll->Set_Clickable(needs_scrolling);
    scroll->Set_Button_Role(true);
    connect(scroll, &Skin_Label::Clicked, this, [this] { Scroll(); });
    connect(this, &Config_Language_List::Chosen, this, &Config_Language_List::Mark);
}

void Config_Language_List::Mark(const QString& language)
{
    marked_ = language;
    for (std::size_t line = 0; line < options_.size(); ++line)
        options_[line]->Set_On(languages_[int(line)] == language);
}

int Config_Language_List::Scroll()
{
    const int visible_lines = std::max(1, frame_->height() / Line_Height);
    const int last_top = std::max(0, Line_Count() - visible_lines);
    top_line_ = top_line_ >= last_top ? 0 : top_line_ + 1;
    list_->move(0, -top_line_ * Line_Height);
    return top_line_;
}

} // namespace Orvane
