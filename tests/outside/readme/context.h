// What the samples of the documents take for given.
#pragma once

#include <wynconfig/database.h>
#include <wynconfig/qt_view.h>
#include <wynconfig/resource_manager.h>
#include <wynconfig/scripted_view.h>
#include <wynconfig/wynconfig.h>

#include <QApplication>
#include <memory>
#include <string>

struct LanguageMenu {
    void add(const std::string& name, const std::string& tag);
};
struct SessionList {
    void add(const std::string& name, const std::string& changer);
};
struct Host {
    void addSession(std::string& name);
};
bool addsASession(wynconfig::WYNConfig& config, wynconfig::User& user);
extern QWidget* mainWindow;
extern wynconfig::WYNConfig config;
extern LanguageMenu languageMenu;
extern Host myHost;
extern wynconfig::SessionDatabase database;
extern SessionList sessionList;
extern const std::string changedXml;
void tell(const std::string& text);
