#include "configuration/ConfigurationCheck.h"

#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

#include <optional>
#include <utility>

namespace {

const auto Preferences = QStringLiteral("Preferences");
const auto GroupMode = QStringLiteral("GroupMode");

bool Same(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

bool IsXmlName(const QString& name)
{
    static const QRegularExpression form(QStringLiteral("^[\\p{L}_:][\\p{L}\\p{M}\\p{N}._:-]*$"));
    return form.match(name).hasMatch();
}

// Walks the file as far as it is XML and keeps what the messages need.
class Walk {
public:
    Walk(const QByteArray& content, const QString& fileName)
        : FReader(content)
        , FText(QString::fromUtf8(content))
        , FFileName(fileName)
    {
        FReader.setNamespaceProcessing(false);
    }

    Problems Run()
    {
        while (!FReader.atEnd())
            Take(FReader.readNext());
        if (FReader.hasError())
            FProblems << XmlProblem();
        else if (!FGroupModeSeen)
            FProblems << FMissing.value_or(GroupModeProblem(QStringLiteral("GroupMode is missing")));
        return FProblems;
    }

private:
    void Take(QXmlStreamReader::TokenType token)
    {
        if (token == QXmlStreamReader::StartElement) {
            FOpen << FReader.qualifiedName().toString();
        } else if (token == QXmlStreamReader::EndElement) {
            if (FOpen.last() == Preferences && !std::exchange(FPreferencesEnded, true))
                FMissing = GroupModeProblem(QStringLiteral("GroupMode is missing"));
            FEnded.insert(FOpen.takeLast().toLower());
        } else if (token == QXmlStreamReader::Characters && AtGroupMode()) {
            FGroupModeSeen = true;
            CheckGroupMode();
        }
    }
    void CheckGroupMode()
    {
        bool isNumber = false;
        const int mode = FReader.text().trimmed().toInt(&isNumber);
        if (!isNumber)
            FProblems << GroupModeProblem(QStringLiteral("GroupMode is no number"));
        else if (mode < 0 || mode > 2)
            FProblems << ProblemHere(QStringLiteral("GroupMode is none of 0, 1 and 2"), Problem::Warning);
    }
    // The first of its name in the first Preferences is the one that counts.
    bool AtGroupMode() const
    {
        return !FGroupModeSeen && !FPreferencesEnded && !FReader.isWhitespace() && FOpen.size() >= 2
            && Same(FOpen.last(), GroupMode) && FOpen.at(FOpen.size() - 2) == Preferences;
    }

    Problem ProblemHere(const QString& text, Problem::Kind severity) const
    {
        return { FFileName, int(FReader.lineNumber()), int(FReader.columnNumber()) + 1, text, severity };
    }
    Problem GroupModeProblem(const QString& what) const
    {
        return ProblemHere(what
                + QStringLiteral("; the tool window needs <GroupMode>0</GroupMode> (or 1, by form, or "
                                 "2, by connection) below Preferences"),
            Problem::Error);
    }
    // The plug-in reads each part up to its end: what is wrong behind all of them does not reach it.
    bool AllPartsEnded() const
    {
        return FPreferencesEnded && FEnded.contains(QStringLiteral("prvcl")) && FEnded.contains(QStringLiteral("prclr"))
            && FEnded.contains(QStringLiteral("prclx"));
    }
    Problem XmlProblem() const
    {
        const auto entry = FaultyEntry();
        return ProblemHere(entry.isEmpty() ? FReader.errorString().trimmed() : entry,
            AllPartsEnded() ? Problem::Warning : Problem::Error);
    }

    // Where the reader stands: the personality and group, as far as they are open.
    QString Place() const
    {
        QStringList names;
        for (const auto& name : FOpen)
            if (!Same(name, u"Morvane") && !Same(name, u"CustomizeSection") && !Same(name, u"FieldSection"))
                names << name;
        return names.join(QStringLiteral(", "));
    }
    // The tag that the reader gave up in.
    QString FaultyTag() const
    {
        const auto offset = std::min<qsizetype>(FReader.characterOffset(), FText.size());
        const auto start = FText.lastIndexOf(u'<', std::max<qsizetype>(offset - 1, 0));
        if (start < 0)
            return {};
        const auto end = FText.indexOf(u'>', start);
        return FText.mid(start, end < 0 ? -1 : end - start);
    }
    // The caption that is no attribute's name, or that stands twice; empty when neither is the fault.
    QString FaultyEntry() const
    {
        static const QRegularExpression attribute(QStringLiteral("([^\\s\"'<>=]+)\\s*=\\s*[\"']([^\"']*)[\"']"));
        QHash<QString, QString> classes;
        for (auto walk = attribute.globalMatch(FaultyTag()); walk.hasNext();) {
            const auto match = walk.next();
            const auto caption = match.captured(1);
            const auto className = match.captured(2);
            if (!IsXmlName(caption))
                return Told(QStringLiteral("the control %1 has the caption \"%2\", which is no name in XML")
                                .arg(className, caption));
            if (classes.contains(caption))
                return Told(QStringLiteral("the controls %1 and %2 have one caption, \"%3\"")
                                .arg(classes.value(caption), className, caption));
            classes.insert(caption, className);
        }
        return {};
    }
    QString Told(const QString& fault) const { return Place() + QStringLiteral(": ") + fault; }

    QXmlStreamReader FReader;
    QString FText;
    QString FFileName;
    QStringList FOpen;
    QSet<QString> FEnded;
    Problems FProblems;
    // What to tell where the preferences end without one.
    std::optional<Problem> FMissing;
    bool FPreferencesEnded = false;
    bool FGroupModeSeen = false;
};

bool HasControl(const QXmlStreamAttributes& attributes)
{
    return std::any_of(attributes.begin(), attributes.end(), [](const QXmlStreamAttribute& attribute) {
        return !Same(attribute.qualifiedName(), u"DefaultClass") && !Same(attribute.value(), u"None")
            && !Same(attribute.value(), u"Details");
    });
}

}

Problems CheckConfiguration(const QByteArray& content, const QString& fileName)
{
    return Walk(content, fileName).Run();
}

bool OffersControls(const QByteArray& content)
{
    QXmlStreamReader reader(content);
    reader.setNamespaceProcessing(false);
    bool inside = false;
    bool offers = false;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::EndElement && Same(reader.qualifiedName(), u"prVCL"))
            break;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (Same(reader.qualifiedName(), u"prVCL"))
            inside = true;
        else if (inside && HasControl(reader.attributes()))
            offers = true;
    }
    return offers && !reader.hasError();
}
