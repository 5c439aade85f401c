#pragma once

#include "app/environment.h"
#include "household/page.h"

#include <functional>

class QWidget;

namespace tarnwick {

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
bool print_job(QWidget& owner, const Environment& environment, const PrintJob& job);

/// The name under which a job is saved: without what a file's name cannot hold, ending in ".pdf".
QString pdf_file_name(const QString& name);

} // namespace tarnwick
