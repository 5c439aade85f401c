#pragma once

#include <QDialog>

#include <array>
#include <functional>

class QFrame;

namespace tarnwick {

/// The choice of the page colour. A choice takes effect at once and there is no way back but another choice.
class frmColor : public QDialog {
    Q_OBJECT
public:
    /// `chosen` is the present index 0 to 3, any other marks none; `set_color` gets the index of each choice.
    frmColor(QWidget* owner, int chosen, int type_size, std::function<void(int)> set_color);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void make_color(int index);
    void choose(int index);
    void place_shapes(int index);

    static constexpr int colors = 4;

    std::function<void(int)> set_color_;
    std::array<QFrame*, colors> frm_color_{};
    std::array<QFrame*, colors> color_{};
    QFrame* Shape1_;
    QFrame* Shape2_;
};

} // namespace tarnwick
