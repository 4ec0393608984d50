#pragma once

#include <QComboBox>

// A combo box with a text field for free typing: nothing is completed, no row is inserted, and only a
// choice from the opened list is a pick. Its signal activated() tells of every pick, also of the row
// picked before. The arrow keys open the list; the wheel does nothing. In the text field the keys of undoing
// are the window's where nothing was typed.
class ComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit ComboBox(QWidget *parent);

    // Adds rows at the end and leaves text and picked row as they are.
    void addRows(const QStringList &texts);
    // Shows a text, which is picked if there is such a row.
    void showText(const QString &text);
    // Takes out all rows and the text.
    void empty();
    // Puts back what was picked and shown before the list was last opened.
    void undoPick();

    void showPopup() override;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void showRow(int row, const QString &text);

    int rowBefore_ = -1;
    QString textBefore_;
};
