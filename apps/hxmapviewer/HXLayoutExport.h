#pragma once
// HXLayoutExport: the viewer's headless page output. It composes the default layout of the files (or
// opens a saved layout document) and writes it as a PDF or an image, without a window.
#include <QString>
#include <QStringList>

class HXLayoutExport {
public:
    struct Options {
        QString out;     // .pdf, or an image format by suffix (.png, .tif)
        QString layout;  // a layout document to use instead of composing one
        QString paper = "A4";
        bool landscape = false;
        int dpi = 300;
        QString title;
        QString crs;
        QStringList files;
    };

    // 0 on success; otherwise 1 (bad option), 2 (a file could not be opened), 4 (cannot write), with
    // the reasons on standard error.
    static int Run(const Options& options);
};
