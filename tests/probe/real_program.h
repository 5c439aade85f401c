#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace tarnwick {

/// The real executable, copied to a folder of its own with a database, and run as a process with the probe in it.
/// Under `tools/on_display.sh` it has a window manager, and `xdotool` gives it a real mouse and keyboard.
class RealProgram {
public:
    /// How a process is watched: it closes by itself, does what is written to it, or leaves the message boxes to
    /// the test as well.
    enum class Probe { watches, closes, listens, leaves_messages };
    static constexpr const char* main_window = "window frmmain";
    static constexpr int patience_ms = 30000;

    /// Makes the folder, anew for each test.
    void renew();

    std::unique_ptr<QProcess> start(Probe probe, const QString& config = QStringLiteral("config")) const;

    /// Waits for the end and gives all that was printed, but for what the functions below have taken.
    static QStringList lines_of(QProcess& process);
    static QByteArray errors_of(const QProcess& process); ///< what it has said on the standard error up to now
    static bool wait_for(QProcess& process, const QByteArray& line);
    static void tell(QProcess& process, const QByteArray& command);

    /// What the probe answers to a question (`message_probe.cpp` has them); a null text when it does not answer.
    static QString ask(QProcess& process, const QByteArray& question);

    /// A start that has got as far as the main window; null when it does not.
    std::unique_ptr<QProcess> start_listening(Probe probe = Probe::listens) const;

    /// Runs xdotool and gives what it prints; a null text when it fails.
    static QString xdotool(const QStringList& arguments);

    /// Clicks with the real mouse into the middle of what a question such as "where title" or "node item0003"
    /// gives.
    static bool click(QProcess& process, const QByteArray& question, int button = 1);

    QString path(const QString& name) const { return folder_->filePath(name); }
    QString program() const { return path(QStringLiteral("app/tarnwick")); }
    QString database() const { return path(QStringLiteral("app/twdata/groc.mdb")); }
    QString settings() const { return path(QStringLiteral("config/tarnwick/settings.ini")); }
    QStringList files() const; ///< what stands in `twdata`

private:
    std::unique_ptr<QTemporaryDir> folder_;
};

} // namespace tarnwick
