#pragma once

#include "packages/PackageList.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

// A folder of catalogues that a test writes, installed over the platform's classes.
class PackagesFixture : public ::testing::Test {
protected:
    PackagesFixture();

    void Write(const QString& fileName, const QByteArray& text);
    // Installs what was written; the problems, a line each, with the bare names of the files.
    std::string Load();
    // Installs one catalogue with these classes, in the group VCL. Fails the test when there is a problem.
    void LoadClasses(const QByteArray& classes, const QByteArray& rest = {});

    QTemporaryDir FFolder;
    PackageList FPackages;
};
