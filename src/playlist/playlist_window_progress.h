#pragma once

#include <QWidget>

namespace Orvane {

class Skin_Label;

// The strip shown under the list while files are being added or a playlist
// is read: what is going on, "n / total", a bar, and Cancel.
class Playlist_Window_Progress : public QWidget {
    Q_OBJECT
public:
    explicit Playlist_Window_Progress(QWidget* parent = nullptr);

    void Set_Texts(const QString& cancel_caption);
    void Start(const QString& caption, int total);
    void Set_Done(int done);
    int Done() const { return done_; }
    int Total() const { return total_; }
    QString Progress_Text() const;

    Skin_Label* Lbl_Progression() const { return caption_; }
    Skin_Label* Lbl_Annuler() const { return cancel_; }

signals:
    void Cancel_Requested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    Skin_Label* caption_;
    Skin_Label* count_;
    Skin_Label* cancel_;
    int done_ = 0;
    int total_ = 0;
};

} // namespace Orvane
