#pragma once

#include "audio/categories_writer.h"
#include "window/layout_window.h"

#include <functional>

class QLabel;
class QLayout;
class TextBox;

// The window "Categories": the 33 names of generi.js, each at its number, to be renamed and saved. Where
// there is no such file it begins with a usual set.
class CategoriesWindow : public LayoutWindow
{
    Q_OBJECT
public:
    // `renamed` hears of other names in Module1.
    explicit CategoriesWindow(std::function<void()> renamed);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeNames();
    QLayout *makeFoot();
    void showNames(const CategoryNames &names);
    void showState();
    CategoryNames boxes() const;
    CategoriesSaving replaceNames();
    void save();

    const std::function<void()> renamed_;
    CategoriesReading read_;
    CategoryNames shown_; // what the boxes held before somebody typed

    QLabel *state_;
    std::array<TextBox *, categoryCount + 1> name_ = {}; // 1 to 33
};
