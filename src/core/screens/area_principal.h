#pragma once

#include <QMdiArea>

/// The area of the child windows, with the program's picture as its background.
class AreaPrincipal : public QMdiArea
{
    Q_OBJECT
public:
    explicit AreaPrincipal(QWidget* padre = nullptr);

protected:
    void paintEvent(QPaintEvent* evento) override;
};
