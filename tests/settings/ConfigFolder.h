#pragma once

#include "SettingsStore.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtGlobal>

// A fresh, empty settings folder: XDG_CONFIG_HOME points into a temporary directory for the
// object's lifetime, so a test never reaches the player's real settings.
class ConfigFolder
{
public:
    ConfigFolder() : m_previous(qgetenv("XDG_CONFIG_HOME"))
    {
        qputenv("XDG_CONFIG_HOME", m_dir.path().toUtf8());
    }
    ~ConfigFolder() { qputenv("XDG_CONFIG_HOME", m_previous); }
    ConfigFolder(const ConfigFolder &) = delete;
    ConfigFolder &operator=(const ConfigFolder &) = delete;

    QString Path() const { return m_dir.path(); }
    QString FilePath() const { return SettingsStore::DefaultFilePath(); }

    void WriteFile(const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(FilePath()).absolutePath());
        QFile file(FilePath());
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }

    QByteArray ReadFile() const
    {
        QFile file(FilePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir m_dir;
    QByteArray m_previous;
};
