#pragma once
// What assistive programs are told about widgets whose kind alone says too little.

#include <QAccessible>
#include <QWidget>

namespace lumidex {

// The widget is presented in this role: pressed, checked and chosen like what it shows, and named as its
// accessible name says. To be said before its text or name, with which the toolkit may present it already.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);

// Makes the roles known to the toolkit; called before the first window, any number of times.
void InstallAccessibleRoles();

}  // namespace lumidex
