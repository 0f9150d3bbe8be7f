#pragma once

#include <QStringList>
#include <QWidget>
#include <vector>

namespace Orvane {

class Option_Pair;
class Skin_Label;

// The language list of the configuration window: Pic_Langue holds one line
// per language (Img_Option_Lang_0/1 and Lbl_Nom_Lang), 20 pixels apart, and
// scrolls inside the Pic_Cache frame it is given as parent; Lbl_Scroll moves
// it one line at a time and back to the top after the last line.
class Config_Language_List : public QObject {
    Q_OBJECT
public:
    static constexpr int Line_Height = 20;

    // frame is Pic_Cache; scroll sits beside it.
    Config_Language_List(QWidget* frame, Skin_Label* scroll, const QStringList& languages);

    // The mark moves to this language's line.
    void Mark(const QString& language);
    QString Marked() const { return marked_; }
    int Line_Count() const { return int(names_.size()); }
    Skin_Label* Name_Label(int line) const { return names_.at(std::size_t(line)); }
    Option_Pair* Option(int line) const { return options_.at(std::size_t(line)); }
    QWidget* Pic_Langue() const { return list_; }
    // Scrolls one line; the top line after the scroll.
    int Scroll();

signals:
    void Chosen(const QString& language);

private:
    QWidget* frame_;
    QWidget* list_;
    QStringList languages_;
    std::vector<Option_Pair*> options_;
    std::vector<Skin_Label*> names_;
    QString marked_;
    int top_line_ = 0;
};

} // namespace Orvane
