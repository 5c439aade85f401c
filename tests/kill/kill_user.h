#pragma once

#include "kill/kill_model.h"
#include "support/last_placed.h"

#include <QObject>
#include <QRandomGenerator>

class QDialog;
class QTreeWidgetItem;

namespace tarnwick {
class frmmain;
}

namespace tarnwick::kill {

/// What a user does all day: fill lists, or tidy up what there is.
enum class Habit { fills, tidies };

/// A user at the main window who works without end, and notes every operation in a log that survives the process.
/// Questions are answered with Yes or OK.
class User : public QObject {
    Q_OBJECT
public:
    User(frmmain& main, Habit habit, quint32 seed, const QString& log_file);
    ~User() override;

    void work(); ///< one operation, then the next from the event loop

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fill();
    void tidy();
    void place();
    void tick();
    void delete_list();
    void make_list();
    void clear_list();
    void delete_category();
    void rename_list();
    void rename_category();
    void rename_item();
    void rename_node(QTreeWidgetItem& node, const QString& name);
    void choose_list();
    void command(const QString& name);
    void answer(QDialog& dialog);
    void answer_clearing(QDialog& dialog);
    QString new_name(const char* what);
    void prepare(const Operation& operation); ///< noted as begun with its last step, behind all typing and asking
    void last_step();
    void done(const Operation& operation);
    void note(const QString& line);
    [[noreturn]] void give_up(const QString& why);

    frmmain& main_;
    const Habit habit_;
    QRandomGenerator random_;
    int log_;
    LastPlaced last_placed_;
    int names_ = 0;
    int mode_ = 0; ///< of the clearing under way
    QString begin_; ///< the log's line of an operation whose last step has not come yet
    QString typed_; ///< what the next box for a name is to take
};

} // namespace tarnwick::kill
