// Prints how long the start-up reading and the exit save take on a damaged settings file of
// 50,000 sections with a 20 MiB line and 64 MiB in all (reading stops there), median of a few
// runs. The file goes to a temporary folder, never the player's.
#include "GameSettings.h"
#include "SettingsStore.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int runs = 5;

QByteArray damagedFile()
{
    QByteArray bytes = "[Game]\nLevel=2\n[Easy]\nA=1\nA=2\n" + QByteArray(20 << 20, 'x') + '\n';
    for (int n = 0; n < 50000; ++n)
        bytes += "[s" + QByteArray::number(n) + "]\nk=v\n";
    return bytes + "[Easy]\nC=3\nD=4\nE=5\n" + QByteArray(48 << 20, '\0');
}

double median(std::vector<double> samples)
{
    std::nth_element(samples.begin(), samples.begin() + samples.size() / 2, samples.end());
    return samples[samples.size() / 2];
}

} // namespace

int main()
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    const QString path = SettingsStore::DefaultFilePath();
    const QByteArray stored = damagedFile();
    std::vector<double> reading, saving;
    for (int run = 0; run < runs; ++run) {
        QFile::remove(path + QStringLiteral(".damaged"));
        SettingsStore(path).Save(); // makes the folder
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(stored) != stored.size())
            return 1;
        file.close();
        QElapsedTimer timer;
        timer.start();
        ReadSettings();
        reading.push_back(timer.nsecsElapsed() / 1e6);
        timer.restart();
        WriteSettings(false);
        saving.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::printf("settings file of %lld MiB, 50,000 sections: read %.1f ms, saved (with its "
                "damaged copy) %.1f ms, median of %d\n",
                static_cast<long long>(stored.size() >> 20), median(reading), median(saving), runs);
}
