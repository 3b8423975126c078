#pragma once
// The "Add URL" dialog: an address line, "Keep Open" to add several addresses in a row, Add and Close.

#include <QDialog>

#include <functional>

class QCheckBox;
class QLineEdit;

namespace pd {

class AddUrlDialog : public QDialog {
public:
    // `onAdd` runs with the address line's text at each press of Add.
    explicit AddUrlDialog(std::function<void(const QString&)> onAdd, QWidget* parent = nullptr);

private:
    void add();

    std::function<void(const QString&)> onAdd_;
    QLineEdit* address_;
    QCheckBox* keepOpen_;
};

} // namespace pd
