// What the samples of the README take for given.
#pragma once

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
struct Host {
    void addSession(std::string& name);
};
extern wynconfig::WYNConfig config;
extern LanguageMenu languageMenu;
extern Host myHost;
