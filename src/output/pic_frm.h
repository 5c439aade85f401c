#pragma once

#include "household/report_options.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;

namespace tarnwick {

class Settings;

/// The dialog that sets how shopping lists print. Each change counts at once, in memory and in the settings; the
/// dialog stays open behind what its buttons ask for.
class pic_frm : public QDialog {
    Q_OBJECT
public:
    /// Shows `options` and changes them. `type_size` of the main window in points.
    pic_frm(ReportOptions& options, Settings& settings, int type_size, QWidget* owner);

signals:
    void print_wanted(bool preview); ///< the list is to be printed, or shown as it would print

private:
    void make_controls();
    QRadioButton& order(ReportSort sort);
    void show_options();
    void connect_controls();
    void place_controls();
    QLayout* place_choices();
    QLayout* place_buttons();
    void take_sort(int sort);
    void take_col_ct(int index);
    void take_size(int index);
    void take_active(bool active);
    void take_all();
    ReportOptions chosen() const;
    void command(int index);
    void show_sample();
    void store(const char* key, int value);

    ReportOptions& options_;
    Settings& settings_;
    QLabel* Picture1_;
    std::array<QGroupBox*, 2> frames_; ///< around the two groups of options
    std::array<QRadioButton*, 2> OptionCol_;
    std::array<QRadioButton*, 3> Option2_;
    QComboBox* ComboSize_;
    QCheckBox* Check1_;
    std::array<QPushButton*, 3> Command1_;
};

} // namespace tarnwick
