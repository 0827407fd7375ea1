#include "output/comment_lines.h"

QStringList CommentLines(const QString& comment) {
    static const QString kOpen = QStringLiteral("; ");
    QStringList lines;
    qsizetype start = 0;
    for (;;) {
        const qsizetype cr = comment.indexOf(u'\r', start);
        if (cr < 0) break;
        lines.append(kOpen + comment.mid(start, cr - start + 1));
        if (cr + 1 >= comment.size()) return lines;
        start = cr + 2;
    }
    lines.append(kOpen + comment.mid(start));
    return lines;
}
