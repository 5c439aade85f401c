#pragma once

#include "household/page.h"

#include <functional>
#include <memory>

class QPagedPaintDevice;
class QWidget;

namespace tarnwick {

/// Where pages are put.
struct Paper {
    std::function<std::unique_ptr<QPagedPaintDevice>()>
        printer; ///< the default printer with its paper; null where there is none
    QString documents_folder; ///< where the user is first offered to save a file
};

/// Pages that go to the printer together.
struct PrintJob {
    QString name; ///< of the list or recipe: names the job and the file
    int first = 1;
    int last = 1;
    std::function<Page(int)> page; ///< lays out the page of a number from first to last
};

/// Prints on the default printer, or without any printer saves a PDF file where the user wants it. A page form
/// fills the printable width of the paper. Tells the user what went wrong. True when the whole job has been printed
/// or saved.
bool print_job(QWidget& owner, const Paper& paper, const PrintJob& job);

/// The name under which a job is saved: without what a file's name cannot hold, ending in ".pdf".
QString pdf_file_name(const QString& name);

} // namespace tarnwick
