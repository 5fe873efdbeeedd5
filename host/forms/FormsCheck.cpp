#include "forms/FormsCheck.h"

#include "forms/FormTree.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

FormsCheck::FormsCheck(Listener listener, FormReadOptions options)
    : FListener(std::move(listener))
    , FOptions(std::move(options))
{
}

void FormsCheck::Check(const QStringList& paths)
{
    for (const auto& path : paths)
        Check(path);
}

void FormsCheck::Check(const QString& path)
{
    if (QFileInfo(path).isDir())
        CheckFolder(path);
    else
        CheckFile(path);
}

QString FormsCheck::Summary() const
{
    return u"files %1, read %2, identical %3, failed %4"_s.arg(FFiles).arg(FRead).arg(FIdentical).arg(Failed());
}

void FormsCheck::CheckFolder(const QString& path)
{
    const QStringList patterns { u"*.dfm"_s, u"*.lfm"_s, u"*.fmx"_s, u"*.nfm"_s, u"*.xfm"_s };
    QDirIterator walk(path, patterns, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    QStringList found;
    while (walk.hasNext())
        found << walk.next();
    found.sort();
    for (const auto& file : found)
        CheckFile(file);
}

void FormsCheck::CheckFile(const QString& path)
{
    ++FFiles;
    const auto form = FormDocument::Load(path, FOptions);
    if (!form)
        return FListener(form.Error());
    ++FRead;
    const auto& document = *form.Value();
    Compare(path, document.Tree().Source().toByteArray(), document);
}

void FormsCheck::Compare(const QString& path, const QByteArray& before, const FormDocument& form)
{
    const auto after = form.Bytes();
    if (after == before) {
        ++FIdentical;
        return;
    }
    const auto differs = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first - before.begin();
    const auto message = u"writing the form would change it here; report this file as a defect"_s;
    auto error = form.Format() == FormFormat::Text
        ? FormErrorAt(before, form.Tree().Prefix.size(), form.Encoding(), differs, message)
        : FormError { {}, 0, 0, differs, message };
    error.File = path;
    FListener(error);
}
