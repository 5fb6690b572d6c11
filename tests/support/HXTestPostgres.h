#pragma once
// A throwaway PostgreSQL server with PostGIS for the tests: initdb and pg_ctl in a temporary
// directory, reached through a Unix socket there (no TCP port), stopped and removed at the end.
// initdb refuses to run as root, so as root the server runs as the "postgres" user the Debian
// package creates. start() is false, with the reason in error(), when the server cannot start.
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

class HXTestPostgres {
public:
    ~HXTestPostgres() { stop(); }

    void stop() {
        if (m_started) run(bin("pg_ctl"), {"-D", data(), "-m", "immediate", "-w", "stop"});
        m_started = false;
    }

    bool start() {
        QElapsedTimer timer;
        timer.start();
        const QStringList versions = QDir("/usr/lib/postgresql").entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        if (versions.isEmpty()) return fail("no PostgreSQL server installed (postgresql-15-postgis-3)");
        m_bin = "/usr/lib/postgresql/" + versions.last() + "/bin/";
        if (!m_dir.isValid()) return fail("no temporary directory");
        if (::geteuid() == 0 && !run("chown", {"postgres:postgres", m_dir.path()}, false))
            return fail("cannot give the directory to the postgres user");
        if (!run(bin("initdb"), {"-D", data(), "-A", "trust", "-U", "postgres", "--no-sync", "-E", "UTF8"}))
            return fail("initdb failed: " + m_output);
        const QString options = QString(
                                    "-c listen_addresses='' -c unix_socket_directories='%1' -c fsync=off "
                                    "-c full_page_writes=off -k %1 -p %2")
                                    .arg(m_dir.path())
                                    .arg(m_port);
        if (!run(bin("pg_ctl"),
                 {"-D", data(), "-o", options, "-l", m_dir.path() + "/log", "-w", "-t", "30", "start"}))
            return fail("the server did not start: " + m_output);
        m_started = true;
        if (!sql("CREATE EXTENSION postgis")) return fail("PostGIS is missing: " + m_output);
        m_startMs = timer.elapsed();
        return true;
    }

    // Runs SQL through psql; false with the output kept for error().
    bool sql(const QString& statement) {
        return run("psql",
                   {"-h", m_dir.path(), "-p", QString::number(m_port), "-U", "postgres", "-d", "postgres",
                    "-v", "ON_ERROR_STOP=1", "-q", "-c", statement},
                   false);
    }

    // The OGR connection string of the database.
    QString connection() const {
        return QString("PG:host=%1 port=%2 user=postgres dbname=postgres").arg(m_dir.path()).arg(m_port);
    }
    QString error() const { return m_error; }
    qint64 startMilliseconds() const { return m_startMs; }

private:
    QString data() const { return m_dir.path() + "/data"; }
    QString bin(const char* name) const { return m_bin + name; }
    bool fail(const QString& why) {
        m_error = why;
        return false;
    }
    // Runs the program (as the postgres user when root and `asServer`); each has 60 s.
    bool run(const QString& program, QStringList arguments, bool asServer = true) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        if (asServer && ::geteuid() == 0) {
            arguments = QStringList{"-u", "postgres", "--", program} + arguments;
            process.start("runuser", arguments);
        } else {
            process.start(program, arguments);
        }
        const bool finished = process.waitForFinished(60000);
        m_output = QString::fromLocal8Bit(process.readAll()).trimmed();
        if (!finished) m_output += " (no answer within 60 s)";
        return finished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }

    QTemporaryDir m_dir{"/tmp/hxpg-XXXXXX"};
    QString m_bin, m_output, m_error;
    const int m_port = 5432;
    bool m_started = false;
    qint64 m_startMs = 0;
};
