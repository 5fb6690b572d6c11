#pragma once
// Everything written to standard error (file descriptor 2, so C and C++ libraries' output too) while
// a capture lives, up to Finish(). Header-only.
#include <unistd.h>

#include <QByteArray>
#include <QTemporaryFile>
#include <cstdio>

class HOStderrCapture {
public:
    HOStderrCapture() {
        m_file.open();
        std::fflush(stderr);
        m_saved = ::dup(2);
        ::dup2(m_file.handle(), 2);
    }
    ~HOStderrCapture() { Finish(); }
    QByteArray Finish() {
        if (m_saved < 0) return {};
        std::fflush(stderr);
        ::dup2(m_saved, 2);
        ::close(m_saved);
        m_saved = -1;
        m_file.seek(0);
        return m_file.readAll();
    }

private:
    QTemporaryFile m_file;
    int m_saved = -1;
};
