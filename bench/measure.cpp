#include "measure.h"

#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace bench {

double Median(std::vector<double> values) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const size_t mid = values.size() / 2;
    return values.size() % 2 ? values[mid] : (values[mid - 1] + values[mid]) / 2;
}

double MedianMs(int repeats, const std::function<void()>& work,
                const std::function<void()>& prepare) {
    std::vector<double> times;
    for (int i = 0; i < repeats; ++i) {
        if (prepare) prepare();
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    return Median(times);
}

double ResidentMiB() {
#ifndef Q_OS_LINUX
    return -1;
#else
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly)) return -1;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    if (fields.size() < 2) return -1;
    return fields[1].toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
#endif
}

bool Row::met() const {
    bool ok = true;
    if (maxRatio > 0 && floor > 0) ok = ok && figure <= maxRatio * floor;
    if (maxFigure > 0) ok = ok && figure < maxFigure;
    return ok;
}

void Print(const std::vector<Row>& rows) {
    std::printf("%-72s %12s %12s %6s  %-18s %s\n", "work", "figure", "floor", "ratio", "target",
                "met");
    int targets = 0;
    int failed = 0;
    for (const Row& r : rows) {
        QString target;
        if (r.maxRatio > 0) target = QStringLiteral("<= %1 x floor").arg(r.maxRatio);
        if (r.maxFigure > 0)
            target += (target.isEmpty() ? QString() : QStringLiteral(", ")) +
                      QStringLiteral("< %1 %2").arg(r.maxFigure).arg(r.unit);
        const QString figure = r.unit.isEmpty() ? QStringLiteral("-")
                                                : QString::number(r.figure, 'f', 2) + u' ' + r.unit;
        const QString floor =
            r.floor > 0 ? QString::number(r.floor, 'f', 2) + u' ' + r.unit : QStringLiteral("-");
        const QString ratio =
            r.floor > 0 ? QString::number(r.figure / r.floor, 'f', 2) : QStringLiteral("-");
        std::printf("%-72s %12s %12s %6s  %-18s %s\n", qPrintable(r.work), qPrintable(figure),
                    qPrintable(floor), qPrintable(ratio), qPrintable(target),
                    !r.target() ? "-"
                    : r.met()   ? "yes"
                                : "NO");
        if (r.target()) ++targets;
        if (!r.met()) ++failed;
    }
    std::printf("%d targets, %d met, %d missed\n", targets, targets - failed, failed);
}

}  // namespace bench
