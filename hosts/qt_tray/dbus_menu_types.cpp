#include "qt_tray/dbus_menu_types.h"

#include <QDBusMetaType>
#include <QList>

namespace quillbox {
namespace {

template <class... Fields>
QDBusArgument& Write(QDBusArgument& out, const Fields&... fields) {
  out.beginStructure();
  (out << ... << fields);
  out.endStructure();
  return out;
}

template <class... Fields>
const QDBusArgument& Read(const QDBusArgument& in, Fields&... fields) {
  in.beginStructure();
  (in >> ... >> fields);
  in.endStructure();
  return in;
}

}  // namespace

QDBusArgument& operator<<(QDBusArgument& out, const MenuLayout& v) {
  return Write(out, v.Id, v.Properties, v.Children);
}
const QDBusArgument& operator>>(const QDBusArgument& in, MenuLayout& v) {
  return Read(in, v.Id, v.Properties, v.Children);
}
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemProperties& v) {
  return Write(out, v.Id, v.Properties);
}
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemProperties& v) {
  return Read(in, v.Id, v.Properties);
}
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemNames& v) {
  return Write(out, v.Id, v.Names);
}
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemNames& v) {
  return Read(in, v.Id, v.Names);
}
QDBusArgument& operator<<(QDBusArgument& out, const MenuEvent& v) {
  return Write(out, v.Id, v.Event, v.Data, v.Time);
}
const QDBusArgument& operator>>(const QDBusArgument& in, MenuEvent& v) {
  return Read(in, v.Id, v.Event, v.Data, v.Time);
}

void RegisterMenuTypes() {
  qDBusRegisterMetaType<MenuLayout>();
  qDBusRegisterMetaType<MenuItemProperties>();
  qDBusRegisterMetaType<QList<MenuItemProperties>>();
  qDBusRegisterMetaType<MenuItemNames>();
  qDBusRegisterMetaType<QList<MenuItemNames>>();
  qDBusRegisterMetaType<MenuEvent>();
  qDBusRegisterMetaType<QList<MenuEvent>>();
}

const char kMenuInterface[] = R"xml(<interface name="com.canonical.dbusmenu">
  <property name="Version" type="u" access="read"/>
  <property name="TextDirection" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="IconThemePath" type="as" access="read"/>
  <method name="GetLayout">
    <arg name="parentId" type="i" direction="in"/>
    <arg name="recursionDepth" type="i" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="revision" type="u" direction="out"/>
    <arg name="layout" type="(ia{sv}av)" direction="out"/>
  </method>
  <method name="GetGroupProperties">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="properties" type="a(ia{sv})" direction="out"/>
  </method>
  <method name="GetProperty">
    <arg name="id" type="i" direction="in"/><arg name="name" type="s" direction="in"/>
    <arg name="value" type="v" direction="out"/>
  </method>
  <method name="Event">
    <arg name="id" type="i" direction="in"/><arg name="eventId" type="s" direction="in"/>
    <arg name="data" type="v" direction="in"/><arg name="timestamp" type="u" direction="in"/>
  </method>
  <method name="EventGroup">
    <arg name="events" type="a(isvu)" direction="in"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <method name="AboutToShow">
    <arg name="id" type="i" direction="in"/><arg name="needUpdate" type="b" direction="out"/>
  </method>
  <method name="AboutToShowGroup">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="updatesNeeded" type="ai" direction="out"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <signal name="ItemsPropertiesUpdated">
    <arg name="updatedProps" type="a(ia{sv})"/><arg name="removedProps" type="a(ias)"/>
  </signal>
  <signal name="LayoutUpdated">
    <arg name="revision" type="u"/><arg name="parent" type="i"/>
  </signal>
</interface>
)xml";

}  // namespace quillbox
