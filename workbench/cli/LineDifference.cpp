#include "cli/LineDifference.h"

#include <vector>

namespace {

QList<QByteArray> LinesOf(const QByteArray& text)
{
    QList<QByteArray> lines;
    for (qsizetype from = 0; from < text.size();) {
        const auto end = text.indexOf('\n', from);
        const auto next = end < 0 ? text.size() : end + 1;
        lines << text.mid(from, next - from);
        from = next;
    }
    return lines;
}

void DropCommonEnds(QList<QByteArray>& a, QList<QByteArray>& b)
{
    qsizetype head = 0;
    while (head < std::min(a.size(), b.size()) && a[head] == b[head])
        ++head;
    qsizetype tail = 0;
    while (tail < std::min(a.size(), b.size()) - head && a[a.size() - 1 - tail] == b[b.size() - 1 - tail])
        ++tail;
    a = a.mid(head, a.size() - head - tail);
    b = b.mid(head, b.size() - head - tail);
}

QString Shown(char mark, const QByteArray& line)
{
    auto text = QString::fromUtf8(line);
    while (text.endsWith(u'\n') || text.endsWith(u'\r'))
        text.chop(1);
    return QLatin1Char(mark) + text;
}

}

// The longest common subsequence of what is left between the common ends.
QStringList LineDifference(const QByteArray& before, const QByteArray& after)
{
    auto a = LinesOf(before);
    auto b = LinesOf(after);
    DropCommonEnds(a, b);
    const auto width = size_t(b.size()) + 1;
    std::vector<int> common((size_t(a.size()) + 1) * width, 0);
    for (qsizetype i = a.size() - 1; i >= 0; --i)
        for (qsizetype j = b.size() - 1; j >= 0; --j) {
            const auto here = size_t(i) * width + size_t(j);
            common[here]
                = a[i] == b[j] ? common[here + width + 1] + 1 : std::max(common[here + width], common[here + 1]);
        }
    QStringList lines;
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < a.size() || j < b.size()) {
        if (i < a.size() && j < b.size() && a[i] == b[j]) {
            ++i;
            ++j;
        } else if (j < b.size()
            && (i == a.size()
                || common[size_t(i) * width + size_t(j) + 1] >= common[size_t(i + 1) * width + size_t(j)])) {
            lines << Shown('+', b[j++]);
        } else {
            lines << Shown('-', a[i++]);
        }
    }
    return lines;
}
