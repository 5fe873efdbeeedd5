// Writes a configuration from the table of default bindings, at build time.
//
// usage: mrv_make_configuration default|starter TABLE OUTPUT
//
// "default" is the plug-in's embedded default; "starter" is what the plug-in itself saves for these bindings.

#include "config/StreamWriter.h"
#include "config/XmlTextWriter.h"
#include "rtl/SysUtils.h"

#include <QFile>
#include <QRegularExpression>

#include <cstdio>

namespace {

// The embedded default has this size; empty lines at its end fill it.
constexpr qint64 DefaultSize = 21121;

struct Line {
    QString Name;
    QStringList Controls;
    bool Absent = false;
};

QList<Line> ReadTable(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw EFOpenError(QStringLiteral("Cannot open \"%1\"").arg(fileName));
    QList<Line> table;
    while (!file.atEnd()) {
        const auto text = QString::fromUtf8(file.readLine()).simplified();
        if (text.isEmpty() || text.startsWith(u'#'))
            continue;
        auto words = text.split(u' ');
        Line line { words.takeFirst(), words };
        line.Absent = words == QStringList(u"absent"_qs);
        if (line.Absent || words == QStringList(u"none"_qs))
            line.Controls.clear();
        table << line;
    }
    return table;
}

void WriteControls(XmlTextWriter& writer, const QStringList& controls)
{
    for (const auto& control : controls)
        writer.WriteAttributeString(control.mid(1), control);
    writer.WriteAttributeString(u"DefaultClass"_qs, controls.first());
    writer.WriteEndElement();
}

// A group without controls: the default has it empty, a saved one holds the pseudo-control that loading adds.
void WriteEmptyGroup(XmlTextWriter& writer, bool saved)
{
    if (!saved)
        return writer.WriteFullEndElement();
    writer.WriteAttributeString(u"DefaultClass"_qs, u"None"_qs);
    writer.WriteEndElement();
}

void WriteGroup(XmlTextWriter& writer, const Line& line, bool saved)
{
    writer.WriteStartElement(line.Name);
    writer.WriteStartElement(u"CtrlClassNames"_qs);
    if (line.Controls.isEmpty())
        WriteEmptyGroup(writer, saved);
    else
        WriteControls(writer, line.Controls);
    writer.WriteFullEndElement();
}

void WritePersonality(XmlTextWriter& writer, const QString& name, const QList<Line>& table, bool saved)
{
    writer.WriteStartElement(name);
    writer.WriteStartElement(u"DatasetSection"_qs);
    WriteControls(writer, table.first().Controls);
    writer.WriteStartElement(u"FieldSection"_qs);
    for (const auto& line : table.sliced(1))
        if (saved || !line.Absent)
            WriteGroup(writer, line, saved);
    writer.WriteFullEndElement();
    writer.WriteFullEndElement();
}

void WriteConfiguration(StreamWriter& file, const QList<Line>& table, bool saved)
{
    XmlTextWriter writer(file);
    writer.WriteStartElement(u"Morvane"_qs);
    writer.WriteStartElement(u"Preferences"_qs);
    writer.WriteElementString(u"GroupMode"_qs, u"0"_qs);
    writer.WriteElementString(u"ScanAllForms"_qs, u"False"_qs);
    writer.WriteFullEndElement();
    writer.WriteStartElement(u"CustomizeSection"_qs);
    for (const auto& name : { u"VCL"_qs, u"CLR"_qs, u"CLX"_qs })
        WritePersonality(writer, saved ? u"pr"_qs + name : name, table, saved);
    writer.WriteFullEndElement();
    writer.WriteFullEndElement();
}

void FillToSize(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::Append))
        throw EFOpenError(QStringLiteral("Cannot open \"%1\"").arg(fileName));
    const auto missing = DefaultSize - file.size();
    if (missing < 0 || missing % 2 != 0)
        throw Exception(QStringLiteral("the default has %1 bytes and no way to %2").arg(file.size()).arg(DefaultSize));
    file.write(QByteArray("\r\n").repeated(missing / 2));
}

void Make(const QString& form, const QString& tableName, const QString& output)
{
    const bool saved = form == u"starter"_qs;
    if (!saved && form != u"default"_qs)
        throw Exception(QStringLiteral("unknown form \"%1\"").arg(form));
    StreamWriter file(output);
    WriteConfiguration(file, ReadTable(tableName), saved);
    file.Close();
    if (!saved)
        FillToSize(output);
}

}

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: mrv_make_configuration default|starter TABLE OUTPUT\n");
        return 2;
    }
    try {
        Make(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "mrv_make_configuration: %s\n", exception.what());
        return 1;
    }
    return 0;
}
