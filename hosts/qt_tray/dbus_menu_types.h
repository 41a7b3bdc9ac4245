// What com.canonical.dbusmenu sends over the bus.
#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QStringList>
#include <QVariant>

namespace quillbox {

// (ia{sv}av): an item with what it opens.
struct MenuLayout {
  int Id = 0;
  QVariantMap Properties;
  QVariantList Children;
};

// (ia{sv})
struct MenuItemProperties {
  int Id = 0;
  QVariantMap Properties;
};

// (ias)
struct MenuItemNames {
  int Id = 0;
  QStringList Names;
};

// (isvu)
struct MenuEvent {
  int Id = 0;
  QString Event;
  QDBusVariant Data;
  uint Time = 0;
};

QDBusArgument& operator<<(QDBusArgument& out, const MenuLayout& value);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuLayout& value);
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemProperties& value);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemProperties& value);
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemNames& value);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemNames& value);
QDBusArgument& operator<<(QDBusArgument& out, const MenuEvent& value);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuEvent& value);

// Before any of them is sent or received.
void RegisterMenuTypes();

// The interface's description, in XML.
extern const char kMenuInterface[];

}  // namespace quillbox
