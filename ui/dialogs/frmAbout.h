#pragma once

#include <QDialog>

#include <array>

class ClickableLabel;

// The about box: portrait, speech bubble, author's note and flag in the language of
// Common::LangEnglish at opening. A click on the nose shows the hint of the hidden key
// combination and leaves the box open. A left click on the bare background, the portrait or a
// hint label, or any key that produces a character, closes it; clicks on the other pictures
// and labels do nothing. Deletes itself when closed.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(QWidget *parent = nullptr);

private slots:
    void nose_Click();
    void Image1_Click();
    void lI3_Click();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override; // Form_Click
    void keyPressEvent(QKeyEvent *event) override;       // Form_KeyPress

private:
    // Every control of the box swallows its own clicks; only the connected ones act.
    ClickableLabel *Place(const QString &name, const QRect &place, const QString &text = QString());
    ClickableLabel *PlacePicture(const QString &name, const QRect &place, const QPixmap &picture);
    // lE<number> and lI<number>, the one of the current language visible.
    std::array<ClickableLabel *, 2> PlaceLanguagePair(char number, const QRect &english,
                                                      const QRect &italian,
                                                      const QString &englishText,
                                                      const QString &italianText);
};
