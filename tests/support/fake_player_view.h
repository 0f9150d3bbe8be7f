#pragma once

#include "player/player_view.h"
#include "support/fake_media_graph.h"

#include <array>
#include <map>

namespace Orvane::Test {

// The player window's controls as plain values. Every change is also
// journaled ("Set_Time_Text(00:00:05)"), so a test can check both where the
// window stands and the order in which it got there.
class Fake_Player_View : public Player_View {
public:
    struct Menu_Entry {
        QString caption;
        bool visible = false;
        bool checked = false;
    };
    using Menu = std::map<int, Menu_Entry>;  // entries by number; entry 1 always exists

    explicit Fake_Player_View(Call_Journal* journal = nullptr) : journal_(journal ? journal : &own_journal_) {}

    void Set_Button_Top(int index, int top) override { Add("Set_Button_Top", index, top); button_tops_.at(size_t(index)) = top; }
    int Button_Top(int index) const override { return button_tops_.at(size_t(index)); }
    void Show_Volume_Level(int level) override { Add("Show_Volume_Level", level); Volume_Level_Shown = level; }
    void Set_Time_Text(const QString& text) override { Add("Set_Time_Text", text); time_text_ = text; }
    QString Time_Text() const override { return time_text_; }
    void Set_Time_Mode_Caption(const QString& text) override { Add("Set_Time_Mode_Caption", text); Time_Mode_Caption = text; }
    void Set_Cursor_Left(int pixels) override { Add("Set_Cursor_Left", pixels); Cursor_Left = pixels; }
    int Progress_Track_Width() const override { return 310; }
    void Set_Track_Number_Text(const QString& text) override { Add("Set_Track_Number_Text", text); Track_Number_Text = text; }
    void Set_Title_Text(const QString& text) override { Add("Set_Title_Text", text); title_text_ = text; }
    QString Title_Text() const override { return title_text_; }
    void Set_Audio_Text(const QString& text) override { Add("Set_Audio_Text", text); Audio_Text = text; }
    void Set_Subtitle_Text(const QString& text) override { Add("Set_Subtitle_Text", text); Subtitle_Text = text; }
    void Set_Audio_Lamp_Visible(bool visible) override { Add("Set_Audio_Lamp_Visible", visible); Audio_Lamp = visible; }
    void Set_Subtitle_Lamp_Visible(int index, bool visible) override
    {
        Add("Set_Subtitle_Lamp_Visible", index, visible);
        Subtitle_Lamps.at(size_t(index)) = visible;
    }
    void Set_Stream_Entry_Count(int count) override { Add("Set_Stream_Entry_Count", count); Resize(Stream_Entries, count); }
    void Set_Stream_Entry(int k, const QString& caption, bool visible) override
    {
        Add("Set_Stream_Entry", k, caption, visible);
        Stream_Entries.at(k) = {caption, visible, Stream_Entries.at(k).checked};
    }
    void Set_Stream_Checked(int k, bool checked) override { Add("Set_Stream_Checked", k, checked); Stream_Entries.at(k).checked = checked; }
    void Set_Associated_Entry_Count(int count) override { Add("Set_Associated_Entry_Count", count); Resize(Associated_Entries, count); }
    void Set_Associated_Entry(int j, const QString& caption, bool visible) override
    {
        Add("Set_Associated_Entry", j, caption, visible);
        Associated_Entries.at(j) = {caption, visible, Associated_Entries.at(j).checked};
    }
    void Set_Associated_Checked(int j, bool checked) override
    {
        Add("Set_Associated_Checked", j, checked);
        Associated_Entries.at(j).checked = checked;
    }
    void Set_Separation_Visible(bool visible) override { Add("Set_Separation_Visible", visible); Separation_Visible = visible; }
    void Popup_Audio_Menu() override { Add("Popup_Audio_Menu"); ++Popups; }
    void Bring_To_Front() override { Add("Bring_To_Front"); ++Front_Calls; }
    void Set_Window_Height(int pixels) override { Add("Set_Window_Height", pixels); Window_Height = pixels; }

    // The visible entries' captions, "*" after the checked ones.
    static QStringList Visible(const Menu& entries);

    int Volume_Level_Shown = -1;
    QString Time_Mode_Caption;
    int Cursor_Left = 0;
    QString Track_Number_Text;
    QString Audio_Text;
    QString Subtitle_Text;
    bool Audio_Lamp = false;
    std::array<bool, 2> Subtitle_Lamps = {false, false};
    bool Separation_Visible = false;
    int Popups = 0;
    int Front_Calls = 0;
    int Window_Height = 133;
    Menu Stream_Entries = {{1, {QStringLiteral("Stream audio 1")}}};
    Menu Associated_Entries = {{1, {QStringLiteral("Audio associé 1")}}};

private:
    template <typename... Args>
    void Add(const char* name, const Args&... args) { journal_->Add(name, args...); }
    static void Resize(Menu& entries, int count);

    Call_Journal own_journal_;
    Call_Journal* journal_;
    std::array<int, 13> button_tops_ = {91, 91, 91, 91, 55, 55, 55, 55, 55, 85, 89, 89, 89};
    QString time_text_ = QStringLiteral("00:00:00");
    QString title_text_;
};

} // namespace Orvane::Test
