// Random configurations, changed, saved and loaded, held against a model of what must come back.

#include "plugin/config/ConfigurationFixture.h"

#include <QMap>

#include <algorithm>
#include <iostream>
#include <random>

namespace {

struct Control {
    QString Caption;
    QString ClassName;
};

// A list as it must look: its controls in order, and the class name of its default where one is fixed.
struct ModelList {
    QList<Control> Controls;
    std::optional<QString> Default;
    bool IsDataSet = false;

    static bool IsPseudo(const QString& name)
    {
        return name.compare(u"None"_qs, Qt::CaseInsensitive) == 0
            || name.compare(u"Details"_qs, Qt::CaseInsensitive) == 0;
    }
    qsizetype Find(const QString& className) const
    {
        for (qsizetype i = 0; i < Controls.size(); ++i)
            if (Controls.at(i).ClassName.compare(className, Qt::CaseInsensitive) == 0)
                return i;
        return -1;
    }
    void LookAtDefault()
    {
        if (!Default && !Controls.isEmpty())
            Default = Controls.first().ClassName;
    }
    void Add(const Control& control)
    {
        auto place = Find(u"Details"_qs);
        if (place < 0)
            place = Find(u"None"_qs);
        Controls.insert(place < 0 ? Controls.size() : place, control);
    }
    void MakeDefault(const QString& className)
    {
        Default = className;
        const auto place = Find(className);
        if (IsPseudo(className) || place < 0)
            return;
        Controls.move(place, 0);
        Default = Controls.first().ClassName;
    }
    // The element as a save writes it; saving looks at the default.
    QString Written(const QString& element)
    {
        auto text = u'<' + element;
        if (IsDataSet || !Controls.isEmpty())
            LookAtDefault();
        for (const auto& control : std::as_const(Controls))
            if (!IsPseudo(control.Caption))
                text += Attribute(control.Caption, control.ClassName);
        if (Default && (IsDataSet || !Controls.isEmpty()))
            text += Attribute(u"DefaultClass"_qs, *Default);
        return text + u" />\r\n"_qs;
    }
    static QString Attribute(const QString& name, const QString& value)
    {
        return u' ' + name + u"=\""_qs + value + u'"';
    }
    // What a save and a load make of it.
    void Return()
    {
        if (IsDataSet || !Controls.isEmpty())
            LookAtDefault();
        const auto written = IsDataSet || !Controls.isEmpty() ? Default : std::nullopt;
        Controls.removeIf([](const Control& control) { return IsPseudo(control.Caption); });
        Default.reset();
        if (written)
            MakeDefault(*written);
        Controls << Control { u"None"_qs, u"None"_qs };
        if (IsDataSet)
            Add({ u"Details"_qs, u"Details"_qs });
    }
    QString Text() const
    {
        QStringList words;
        for (const auto& control : Controls)
            words << control.Caption + u'=' + control.ClassName;
        return words.join(u' ');
    }
};

struct Model {
    QMap<int, QList<ModelList>> Personalities; // the dataset list first, then the groups in order
    QList<std::pair<QString, QString>> Preferences;

    void Set(const QString& name, const QString& value)
    {
        const auto place = std::find_if(Preferences.begin(), Preferences.end(),
            [&](const auto& line) { return line.first.compare(name, Qt::CaseInsensitive) == 0; });
        if (place == Preferences.end()) {
            if (!value.isEmpty())
                Preferences.append({ name, value });
        } else if (value.isEmpty()) {
            Preferences.erase(place);
        } else {
            *place = { name, value };
        }
    }
    // The file as a save writes it, with the names of the groups in order.
    QByteArray Written(const QStringList& groups)
    {
        QString text = u"<Morvane>\r\n  <Preferences>\r\n"_qs;
        for (auto [name, value] : std::as_const(Preferences)) {
            value.replace(u"&"_qs, u"&amp;"_qs).replace(u"<"_qs, u"&lt;"_qs).replace(u">"_qs, u"&gt;"_qs);
            value.replace(u"\""_qs, u"&quot;"_qs).replace(u"\r"_qs, u"&#13;"_qs);
            text += u"    <%1>%2</%1>\r\n"_qs.arg(name, value);
        }
        text += u"  </Preferences>\r\n  <CustomizeSection>\r\n"_qs;
        for (const auto& [which, name] :
            { std::pair(prVCL, u"prVCL"_qs), { prCLR, u"prCLR"_qs }, { prCLX, u"prCLX"_qs } }) {
            auto& lists = Personalities[which];
            text += u"    <"_qs + name + u">\r\n      "_qs + lists.first().Written(u"DatasetSection"_qs)
                + u"      <FieldSection>\r\n"_qs;
            for (qsizetype group = 0; group < groups.size(); ++group)
                text += u"        <"_qs + groups.at(group) + u">\r\n          "_qs
                    + lists[group + 1].Written(u"CtrlClassNames"_qs) + u"        </"_qs + groups.at(group)
                    + u">\r\n"_qs;
            text += u"      </FieldSection>\r\n    </"_qs + name + u">\r\n"_qs;
        }
        return (text + u"  </CustomizeSection>\r\n</Morvane>\r\n"_qs).toUtf8();
    }
    void Return()
    {
        for (auto& lists : Personalities)
            for (auto& list : lists)
                list.Return();
        // White space is passed over; a carriage return is written as a reference, and that is text.
        Preferences.removeIf(
            [](const auto& line) { return line.second.trimmed().isEmpty() && !line.second.contains(u'\r'); });
        for (auto& [name, value] : Preferences)
            if (name.compare(u"ScanAllForms"_qs, Qt::CaseInsensitive) == 0)
                value = u"False"_qs;
    }
};

class Random {
public:
    explicit Random(unsigned seed)
        : FEngine(seed)
    {
    }
    int Below(int count) { return int(FEngine() % unsigned(count)); }
    bool Chance(int percent) { return Below(100) < percent; }
    QString Name()
    {
        static const QString first = u"ABCdefghT_ÄÖλ日"_qs;
        static const QString rest = first + u"0123456789.-"_qs;
        QString name(first.at(Below(int(first.size()))));
        for (int length = Below(12); length > 0; --length)
            name += rest.at(Below(int(rest.size())));
        return name;
    }
    QString Value()
    {
        static const QString letters = u"True False=<>&\"'\t\n\r0123 äλ日;,|"_qs;
        QString value;
        for (int length = Below(20); length > 0; --length)
            value += letters.at(Below(int(letters.size())));
        return value;
    }

private:
    std::mt19937 FEngine;
};

class RoundTrip : public ConfigurationFixture, public testing::WithParamInterface<int> {
protected:
    InterfacePtr<IMrvBindableControlInfoList> ListOf(TPersonality which, int index)
    {
        InterfacePtr<IMrvBindableControlInfoList> list;
        const auto personality = Personality(Config, which);
        if (index == 0)
            personality->GetDataSetBindCtrlInfoList(list);
        else
            personality->GetFieldBindCtrlInfoList(list, index - 1);
        return list;
    }

    // A caption that the list does not have yet: two of one name make a file that no reader takes.
    static QString NewCaption(Random& random, const ModelList& list)
    {
        for (;;) {
            const auto caption = random.Name();
            const auto taken = std::any_of(list.Controls.begin(), list.Controls.end(),
                [&](const Control& control) { return control.Caption == caption; });
            if (!taken && !ModelList::IsPseudo(caption) && caption.compare(u"DefaultClass"_qs, Qt::CaseInsensitive))
                return caption;
        }
    }
    void AddOne(Random& random, ModelList& list, const InterfacePtr<IMrvBindableControlInfoList>& real)
    {
        const bool duplicate = !list.Controls.isEmpty() && random.Chance(10);
        const auto className = duplicate ? list.Controls.first().ClassName : u"T"_qs + random.Name();
        const Control control { NewCaption(random, list), ModelList::IsPseudo(className) ? u"TX"_qs : className };
        list.Add(control);
        real->Add(New<TBindableControlInfo>(control.Caption, control.ClassName));
    }
    void ChangeDefault(Random& random, ModelList& list, const InterfacePtr<IMrvBindableControlInfoList>& real)
    {
        auto className = random.Chance(20) ? u"None"_qs : u"T"_qs + random.Name();
        if (!list.Controls.isEmpty() && random.Chance(60))
            className = list.Controls.at(random.Below(int(list.Controls.size()))).ClassName;
        list.MakeDefault(className);
        real->SetDefaultItem(New<TBindableControlInfo>(className.mid(1), className));
    }
    void DeleteOne(Random& random, ModelList& list, const InterfacePtr<IMrvBindableControlInfoList>& real)
    {
        if (list.Controls.isEmpty())
            return;
        const auto className = list.Controls.at(random.Below(int(list.Controls.size()))).ClassName;
        list.LookAtDefault();
        const auto place = list.Find(className);
        if (list.Default->compare(className, Qt::CaseInsensitive) == 0)
            list.Default.reset();
        list.Controls.removeAt(place);
        real->Delete(className.toUpper());
    }
    void ChangeLists(Random& random)
    {
        for (int changes = random.Below(40); changes > 0; --changes) {
            const auto which = TPersonality(random.Below(3));
            const int index = random.Chance(30) ? 0 : random.Below(61);
            auto& list = Expected.Personalities[which][index];
            const auto real = ListOf(which, index);
            if (random.Chance(60))
                AddOne(random, list, real);
            else if (random.Chance(60))
                ChangeDefault(random, list, real);
            else
                DeleteOne(random, list, real);
        }
    }
    void ChangePreferences(Random& random)
    {
        static const QStringList known { u"GroupMode"_qs, u"groupmode"_qs, u"ScanAllForms"_qs, u"SCANALLFORMS"_qs };
        for (int changes = random.Below(10); changes > 0; --changes) {
            const auto name = random.Chance(40) ? known.at(random.Below(int(known.size()))) : random.Name();
            const auto value = random.Value();
            Expected.Set(name, value);
            Preferences(Config)->SetValueByName(name, value);
        }
    }
    QString Difference()
    {
        for (const auto which : { prVCL, prCLR, prCLX }) {
            for (int index = 0; index < 61; ++index) {
                QStringList words;
                const auto list = ListOf(which, index);
                for (int i = 0; i < list->GetCount(); ++i) {
                    InterfacePtr<IMrvBindableControlInfo> item;
                    list->GetItem(i, item);
                    words << CaptionOf(item) + u'=' + ClassNameOf(item);
                }
                const auto& expected = Expected.Personalities[which][index];
                if (words.join(u' ') != expected.Text())
                    return u"personality %1 list %2:\n%3\n%4"_qs.arg(which).arg(index).arg(
                        words.join(u' '), expected.Text());
            }
        }
        for (const auto& [name, value] : std::as_const(Expected.Preferences))
            if (Value(Config, name) != value)
                return u"preference %1: %2 instead of %3"_qs.arg(name, Value(Config, name), value);
        return {};
    }
    QStringList Groups()
    {
        QStringList names;
        const auto personality = Current(Config);
        for (int group = 0; group < personality->FieldGroupCount(); ++group)
            personality->GetFieldGroup(group, names.emplaceBack());
        return names;
    }
    // Groups that nobody knows, among the others and in each form that an element can have.
    void AddUnknownGroups(Random& random)
    {
        auto content = ReadFile();
        for (int count = random.Below(4); count > 0; --count) {
            const auto name = "ftNobody" + QByteArray::number(random.Below(100));
            const auto controls = "<CtrlClassNames A=\"TA\" DefaultClass=\"TA\"/>";
            const QList<QByteArray> forms { "<" + name + ">" + controls + "</" + name + ">", "<" + name + "/>",
                "<" + name + "></" + name + ">", "<" + name + ">text</" + name + ">" };
            const auto place = content.indexOf("\r\n        <ft", random.Below(int(content.size())));
            if (place >= 0)
                content.insert(place, forms.at(random.Below(int(forms.size()))));
        }
        WriteFile(content);
    }
    // What the save wrote and the model did not expect; empty when all is well. Then loads.
    QString SaveAndLoad(Random& random)
    {
        Config->Save();
        const auto saved = QString::fromUtf8(ReadFile()).split(u'\n');
        const auto expected = QString::fromUtf8(Expected.Written(Groups())).split(u'\n');
        AddUnknownGroups(random);
        Config->Load();
        Expected.Return();
        for (qsizetype i = 0; i < std::max(saved.size(), expected.size()); ++i)
            if (saved.value(i) != expected.value(i))
                return u"line %1:\n%2\n%3"_qs.arg(i + 1).arg(saved.value(i), expected.value(i));
        return {};
    }

    void Start()
    {
        Config = Service();
        Expected = {};
        for (const auto which : { prVCL, prCLR, prCLX }) {
            Expected.Personalities[which] = QList<ModelList>(61);
            Expected.Personalities[which].first().IsDataSet = true;
        }
        Expected.Preferences = { { u"GroupMode"_qs, u"0"_qs }, { u"ScanAllForms"_qs, u"False"_qs } };
    }

    InterfacePtr<TMrvConfigurationService> Config;
    Model Expected;
};

}

// Each instance walks from a seed of its own, which it prints; MORVANE_SEED repeats one.
TEST_P(RoundTrip, RandomConfigurationsComeBackAsTheTablesSay)
{
    const auto seed = qEnvironmentVariableIsSet("MORVANE_SEED") ? qEnvironmentVariable("MORVANE_SEED").toUInt()
                                                                : std::random_device {}();
    std::cout << "MORVANE_SEED=" << seed << std::endl;
    SCOPED_TRACE("MORVANE_SEED=" + std::to_string(seed));
    Random random(seed);
    for (int trip = 0; trip < 500; ++trip) {
        if (trip % 10 == 0) {
            QFile::remove(FileName());
            Start();
        }
        ChangeLists(random);
        ChangePreferences(random);
        ASSERT_EQ(Difference(), QString()) << "before the save, trip " << trip;
        ASSERT_EQ(SaveAndLoad(random), QString()) << "saved, trip " << trip;
        ASSERT_EQ(Difference(), QString()) << "after the load, trip " << trip;
        if (trip % 10 == 9) {
            // Nothing changes any more: the file has come to rest.
            Config->Save();
            const auto once = ReadFile();
            Config->Load();
            Config->Save();
            ASSERT_EQ(ReadFile(), once) << "trip " << trip;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RoundTrip, testing::Range(0, 4));
