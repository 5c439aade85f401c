#include "output/paper.h"

#include "output/page_painter.h"
#include "widgets/busy_pointer.h"
#include "widgets/message_box.h"

#include <QBuffer>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

constexpr int pdf_resolution = 1200;

/// The form as large as the printable area takes it: as wide, unless the paper is too low.
void fit_form(QPainter& painter, const QPagedPaintDevice& device, QSize form)
{
    const int dpi = device.logicalDpiX();
    const QSize room = device.pageLayout().paintRectPixels(dpi).size();
    const double scale = std::min(static_cast<double>(room.width()) / form.width(),
                                  static_cast<double>(room.height()) / form.height());
    painter.translate((room.width() - form.width() * scale) / 2, 0);
    painter.scale(scale, scale);
}

/// Paints the pages of a job one after the other. False when the device refuses.
bool paint_job(QPagedPaintDevice& device, const PrintJob& job)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    for (int number = job.first; number <= job.last; ++number) {
        if (number > job.first && !device.newPage())
            return false;
        const Page page = job.page(number);
        painter.save();
        fit_form(painter, device, page.size);
        paint_page(painter, page);
        painter.restore();
    }
    if (!painter.end())
        return false;
    const auto* printer = dynamic_cast<const QPrinter*>(&device);
    return !printer || (printer->printerState() != QPrinter::Error && printer->printerState() != QPrinter::Aborted);
}

/// The job as a PDF file, on the paper of the user's country; empty when it could not be made.
QByteArray pdf_of(const PrintJob& job)
{
    constexpr double margin = 12; // millimetres
    const bool letter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(pdf_resolution);
    writer.setTitle(job.name);
    writer.setCreator(QStringLiteral("Tarnwick"));
    writer.setPageLayout({QPageSize(letter ? QPageSize::Letter : QPageSize::A4),
                          QPageLayout::Portrait,
                          {margin, margin, margin, margin},
                          QPageLayout::Millimeter});
    return paint_job(writer, job) ? bytes : QByteArray();
}

/// Where the user wants the file; empty when he does not.
QString ask_for_file(QWidget& owner, const Paper& paper, const QString& name)
{
    QFileDialog dialog(&owner, QStringLiteral("Save as PDF"));
    dialog.setObjectName(QStringLiteral("save_pdf"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(QStringLiteral("PDF files (*.pdf)"));
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.setDirectory(QDir(paper.documents_folder).exists() ? paper.documents_folder : QDir::homePath());
    dialog.selectFile(pdf_file_name(name));
    for (const auto& [part, purpose] :
         {std::pair{"lookInCombo", "Folder"}, std::pair{"fileTypeCombo", "Kind of file"}})
        if (auto* box = dialog.findChild<QComboBox*>(QLatin1String(part)))
            box->setAccessibleDescription(QLatin1String(purpose));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

/// The old file stays as it is until the new one is whole. The flush tells of a full disk; the commit would not.
bool write_file(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush()
        && file.commit();
}

bool save_job(QWidget& owner, const Paper& paper, const PrintJob& job)
{
    const QString path = ask_for_file(owner, paper, job.name);
    if (path.isEmpty())
        return false;
    const auto saved = [&] {
        const BusyPointer busy;
        return write_file(path, pdf_of(job));
    };
    if (saved())
        return true;
    msg_box(&owner, QStringLiteral("The file cannot be written:\n%1").arg(QDir::toNativeSeparators(path)),
            box::exclamation, QStringLiteral("Tarnwick"));
    return false;
}

} // namespace

QString pdf_file_name(const QString& name)
{
    constexpr int longest = 80;
    QString file;
    for (const QChar character : name.simplified().left(longest))
        file += character == u'/' || character == u'\\' || !character.isPrint() ? QChar(u'-') : character;
    while (file.startsWith(QLatin1Char('.')))
        file.remove(0, 1);
    file = file.trimmed();
    return (file.isEmpty() ? QStringLiteral("Tarnwick") : file) + QStringLiteral(".pdf");
}

bool print_job(QWidget& owner, const Paper& paper, const PrintJob& job)
{
    const std::unique_ptr<QPagedPaintDevice> device = paper.printer ? paper.printer() : nullptr;
    if (!device)
        return save_job(owner, paper, job);
    if (auto* printer = dynamic_cast<QPrinter*>(device.get()))
        printer->setDocName(job.name);
    const auto printed = [&] {
        const BusyPointer busy;
        return paint_job(*device, job);
    };
    if (printed())
        return true;
    msg_box(&owner, QStringLiteral("The printer does not take the pages.\nNothing more is printed."),
            box::exclamation, QStringLiteral("Tarnwick"));
    return false;
}

} // namespace tarnwick
