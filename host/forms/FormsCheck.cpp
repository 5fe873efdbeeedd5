#include "forms/FormsCheck.h"

#include "forms/FormTree.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

FormsCheck::FormsCheck(Listener listener, FormReadOptions options)
    : m_listener(std::move(listener))
    , m_options(std::move(options))
{
}

void FormsCheck::check(const QStringList& paths)
{
    for (const auto& path : paths)
        check(path);
}

void FormsCheck::check(const QString& path)
{
    if (QFileInfo(path).isDir())
        checkFolder(path);
    else
        checkFile(path);
}

QString FormsCheck::summary() const
{
    return u"files %1, read %2, identical %3, failed %4"_s.arg(m_files).arg(m_read).arg(m_identical).arg(failed());
}

void FormsCheck::checkFolder(const QString& path)
{
    const QStringList patterns { u"*.dfm"_s, u"*.lfm"_s, u"*.fmx"_s, u"*.nfm"_s, u"*.xfm"_s };
    QDirIterator walk(path, patterns, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    QStringList found;
    while (walk.hasNext())
        found << walk.next();
    found.sort();
    for (const auto& file : found)
        checkFile(file);
}

void FormsCheck::checkFile(const QString& path)
{
    ++m_files;
    const auto form = FormDocument::load(path, m_options);
    if (!form)
        return m_listener(form.error());
    ++m_read;
    const auto& document = *form.value();
    compare(path, document.tree().source().toByteArray(), document);
}

void FormsCheck::compare(const QString& path, const QByteArray& before, const FormDocument& form)
{
    const auto after = form.bytes();
    if (after == before) {
        ++m_identical;
        return;
    }
    const auto differs = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first - before.begin();
    const auto message = u"writing the form would change it here; report this file as a defect"_s;
    auto error = form.format() == FormFormat::Text
        ? formErrorAt(before, form.tree().prefix.size(), form.encoding(), differs, message)
        : FormError { {}, 0, 0, differs, message };
    error.file = path;
    m_listener(error);
}
