#include "FKRMenuViewController.h"

FKRMenuViewController::FKRMenuViewController(QWidget *parent)
    : QWidget(parent)
{
}

FKRMenuViewController::~FKRMenuViewController() = default;
