// Renders each dialog in both languages to <folder>/dialog-<name>-<en|it>.png.
#include "Common.h"
#include "frmAbout.h"
#include "frmCustom.h"
#include "frmFame.h"
#include "frmPlayer.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTextStream>

#include <memory>

namespace {

template<class Dialog> bool Render(const QDir &folder, const QString &name)
{
    bool saved = true;
    for (const bool english : {true, false}) {
        Common::LangEnglish = english;
        auto *dialog = new Dialog;
        dialog->show();
        const QString file =
            folder.filePath(QStringLiteral("dialog-%1-%2.png").arg(name, english ? "en" : "it"));
        saved = dialog->grab().save(file) && saved;
        dialog->close();
    }
    return saved;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: dialog_screenshots <folder>\n";
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (int row = 0; row < 5; ++row) {
        Common::EasyRecords[row] = {QStringLiteral("Player%1").arg(row + 1), "999"};
        Common::MediumRecords[row] = {QStringLiteral("Player%1").arg(row + 1), "999"};
        Common::HardRecords[row] = {QStringLiteral("Player%1").arg(row + 1), "999"};
    }
    Common::EasyRecords[0] = {QStringLiteral("Zoe"), QStringLiteral("42")};
    const bool saved = Render<frmCustom>(folder, "custom") && Render<frmFame>(folder, "fame") &&
                       Render<frmPlayer>(folder, "player") && Render<frmAbout>(folder, "about");
    return saved ? 0 : 1;
}
