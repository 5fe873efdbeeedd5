#include "host/units/UnitText.h"

#include <gtest/gtest.h>

#include <random>

// Random units, edited in random ways: an edit adds what it should in one place and nothing else, what it did can be
// taken back, and text that is no unit at all is survived.

namespace {

class Generator {
public:
    explicit Generator(unsigned seed)
        : FRandom(seed)
        , FEol(Chance(2) ? QStringLiteral("\r\n") : QStringLiteral("\n"))
    {
    }

    bool Chance(unsigned of) { return FRandom() % of == 0; }
    const QString& Pick(const QStringList& from) { return from[qsizetype(FRandom() % size_t(from.size()))]; }
    unsigned Upto(unsigned limit) { return unsigned(FRandom() % limit); }

    QString Unit()
    {
        QString text = QStringLiteral("unit Main;") + FEol + Noise() + QStringLiteral("interface") + FEol + Uses();
        text += QStringLiteral("type") + FEol;
        if (Chance(3))
            text += QStringLiteral("  TMain = class;") + FEol + QStringLiteral("  TMainClass = class of TMain;") + FEol;
        text += Class();
        text += QStringLiteral("implementation") + FEol + Noise() + (Chance(2) ? Uses() : QString());
        return text + QStringLiteral("end.") + (Chance(4) ? QString() : FEol);
    }

private:
    QString Noise()
    {
        static const QStringList noise { QString(), QStringLiteral("// uses TMain = class end;"),
            QStringLiteral("{ TMain = class(TX) }"), QStringLiteral("(* interface *)"),
            QStringLiteral("{$IFDEF FPC} uses wrong; {$ENDIF}"), QStringLiteral("{ ÄÖ€ }"), QStringLiteral(" ") };
        const auto& one = Pick(noise);
        return one.isEmpty() ? one : one + FEol;
    }

    QString Uses()
    {
        if (Chance(5))
            return {};
        static const QStringList names { QStringLiteral("Vcl.Forms"), QStringLiteral("System.SysUtils"),
            QStringLiteral("Own"), QStringLiteral("My.Own") };
        QString text = QStringLiteral("uses ");
        const unsigned count = 1 + Upto(6);
        for (unsigned i = 0; i < count; ++i) {
            text += i == 0 ? QString() : Chance(3) ? u',' + FEol + QStringLiteral("  ") : QStringLiteral(", ");
            text += Pick(names) + QString::number(FNumber++);
            text += Chance(6) ? QStringLiteral(" {x}") : QString();
        }
        return text + u';' + FEol;
    }

    QString Class()
    {
        QString text
            = QStringLiteral("  TMain = class(TForm)") + (Chance(4) ? QStringLiteral(" // main") : QString()) + FEol;
        for (auto count = Upto(5); count > 0; --count)
            text += QStringLiteral("    Edit%1: TEdit;").arg(FNumber++)
                + (Chance(4) ? QStringLiteral(" { an edit }") : QString()) + FEol;
        if (Chance(3))
            text += QStringLiteral("{$IFDEF X}") + FEol + QStringLiteral("    Extra%1: TEdit;").arg(FNumber++) + FEol
                + QStringLiteral("{$ENDIF}") + FEol;
        if (Chance(2))
            text += QStringLiteral("    procedure Go(A: Integer; B: string);") + FEol;
        if (Chance(2))
            text += QStringLiteral("  private") + FEol + QStringLiteral("    FX: record A: Integer; end;") + FEol;
        return text + QStringLiteral("  end;") + FEol;
    }

    std::mt19937 FRandom;
    QString FEol;
    int FNumber = 1;
};

// Whether one text is the other with something put in at one place.
bool isInsertion(const QByteArray& before, const QByteArray& after)
{
    if (after.size() < before.size())
        return false;
    qsizetype head = 0;
    while (head < before.size() && before[head] == after[head])
        ++head;
    return after.endsWith(before.sliced(head));
}

QByteArray encoded(const QString& text, unsigned how)
{
    if (how == 0)
        return text.toUtf8();
    if (how == 1)
        return "\xEF\xBB\xBF" + text.toUtf8();
    if (how == 2)
        return QString(text).replace(QStringLiteral("€"), QStringLiteral("ß")).toLatin1();
    QByteArray bytes("\xFF\xFE", 2);
    for (const QChar c : text) {
        bytes.append(char(c.cell()));
        bytes.append(char(c.row()));
    }
    return bytes;
}

constexpr unsigned seeds = 1500;

}

TEST(PascalUnitProperty, ADeclarationIsAddedInOnePlaceAndRemovedWithoutATrace)
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        SCOPED_TRACE(seed);
        Generator random(seed);
        const auto text = random.Unit();
        auto unit = PascalOf(encoded(text, seed % 4));
        const auto before = unit.Files();
        const auto fields = FieldsOf(unit, u"TMain"_qs);
        ASSERT_EQ(MessageOf(unit.AddField(u"TMain"_qs, { u"DBEdit1"_qs, u"TDBEdit"_qs })), "done")
            << text.toStdString();
        ASSERT_TRUE(isInsertion(before[0].Bytes, unit.Files()[0].Bytes)) << BytesOf(unit);
        ASSERT_EQ(FieldsOf(unit, u"TMain"_qs), fields.empty() ? "DBEdit1: TDBEdit" : fields + ", DBEdit1: TDBEdit")
            << BytesOf(unit);
        ASSERT_EQ(MessageOf(unit.RenameField(u"TMain"_qs, u"DBEdit1"_qs, u"Other"_qs)), "done");
        ASSERT_EQ(MessageOf(unit.RemoveField(u"TMain"_qs, u"Other"_qs)), "done");
        ASSERT_EQ(unit.Files(), before) << BytesOf(unit);
    }
}

TEST(PascalUnitProperty, AUsesEntryIsAddedInOnePlaceAndTakenBackByTheOldBytes)
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        SCOPED_TRACE(seed);
        Generator random(seed);
        const auto text = random.Unit();
        auto unit = PascalOf(encoded(text, seed % 4));
        const auto before = unit.Files();
        auto uses = unit.InterfaceUses();
        const auto other = unit.ImplementationUses();
        const auto name = unit.InterfaceUses().join(u' ') + other.join(u' ');
        const bool scoped = name.contains(u"Vcl.") || name.contains(u"System.");
        ASSERT_EQ(MessageOf(unit.UseInInterface({ u"Vcl.DBCtrls"_qs, u"DBCtrls"_qs })), "done");
        ASSERT_TRUE(isInsertion(before[0].Bytes, unit.Files()[0].Bytes)) << BytesOf(unit);
        ASSERT_EQ(unit.InterfaceUses(), uses << (scoped ? u"Vcl.DBCtrls"_qs : u"DBCtrls"_qs)) << BytesOf(unit);
        ASSERT_EQ(unit.ImplementationUses(), other) << BytesOf(unit);
        ASSERT_EQ(unit.Check(), Problems());
        unit.Restore(before);
        ASSERT_EQ(unit.Files(), before);
    }
}

TEST(PascalUnitProperty, DamagedTextIsSurvivedAndARefusedEditChangesNothing)
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        SCOPED_TRACE(seed);
        Generator random(seed);
        auto text = random.Unit();
        for (unsigned cuts = 1 + random.Upto(3); cuts > 0; --cuts)
            text.remove(random.Upto(unsigned(text.size())), 1 + random.Upto(12));
        auto unit = PascalOf(encoded(text, seed % 4));
        const auto before = unit.Files();
        const auto addition = unit.AddField(u"TMain"_qs, { u"DBEdit1"_qs, u"TDBEdit"_qs });
        if (addition) {
            ASSERT_GT(addition->Line, 0);
            ASSERT_EQ(unit.Files(), before);
        } else {
            ASSERT_TRUE(isInsertion(before[0].Bytes, unit.Files()[0].Bytes) || unit.FindClass(u"TMain"_qs))
                << text.toStdString();
        }
        const auto middle = unit.Files();
        if (unit.UseInImplementation({ u"Data"_qs, u"Data"_qs })) {
            ASSERT_EQ(unit.Files(), middle);
        }
    }
}
