#pragma once
// The directories page (DirectoriesTabSheet): the five working directories of the measuring
// application, each in an edit, and a browse button that opens the directory dialog for the
// directory edit entered last.

#include <QLabel>
#include <QPushButton>
#include <array>
#include <string>

#include "shell/page_host.h"

namespace wk {

class EditField;
class TOpenDirDialog;

class TDirectoriesPage : public KestelPage {
    Q_OBJECT

public:
    explicit TDirectoriesPage(PageHost& host);
    ~TDirectoriesPage() override;

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

    // The directory edit entered last; nullptr before any was.
    const QWidget* LastDirectoryEdit() const;
    // The directory dialog, made with the page at start-up and opened by every browse.
    TOpenDirDialog& OpenDirDialog() const { return *OpenDirDialog_; }

public slots:
    void pSLE_SystemDirEnter();
    void pSLE_SystemDirExit();
    void pSLE_DataDirEnter();
    void pSLE_DataDirExit();
    void pSLE_PProgDirEnter();
    void pSLE_PProgDirExit();
    void pSLE_MeasDirEnter();
    void pSLE_MeasDirExit();
    void pSLE_UserDirEnter();
    void pSLE_UserDirExit();
    void pPB_BrowserDirClick();

private:
    struct Directory {
        QLabel* label;
        EditField* edit;
        int captionId;
    };
    // The record's field of each directory, in the order of the edits.
    std::string& Field(std::size_t index) const;
    void DirectoryEnter(std::size_t index);
    void DirectoryExit(std::size_t index);
    void ShowField(std::size_t index);

    QLabel* pST_SystemDir;
    QLabel* pST_DataDir;
    QLabel* pST_PProgDir;
    QLabel* pST_MeasDir;
    QLabel* pST_UserDir;
    EditField* pSLE_SystemDir;
    EditField* pSLE_DataDir;
    EditField* pSLE_PProgDir;
    EditField* pSLE_MeasDir;
    EditField* pSLE_UserDir;
    QPushButton* pPB_BrowserDir;
    TOpenDirDialog* OpenDirDialog_;

    std::array<Directory, 5> directories_{};
    EditField* lastEdit_ = nullptr;
};

}  // namespace wk
