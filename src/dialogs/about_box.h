#pragma once
// TAboutBox: the product line, the program's file version, the copyright and a picture.

#include <QDialog>
#include <QString>

class QLabel;
class QPushButton;

namespace wk {

class TAboutBox : public QDialog {
    Q_OBJECT

public:
    explicit TAboutBox(QWidget* owner = nullptr);

    // The file version of a program file as "%d.%d.%d.%d", or "##.##.##.##" when the file
    // has no version resource.
    static QString FileVersionText(const QString& programPath);

private:
    QLabel* LabelGeneralSetup;
    QLabel* LabelVersion;
    QLabel* LabelVersionNumber;
    QLabel* LabelCopyRight;
    QLabel* Image1;
    QPushButton* ButtonOK;
};

}  // namespace wk
