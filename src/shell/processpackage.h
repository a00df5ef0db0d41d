#pragma once

#include <memory>
#include <utility>
#include <vector>

/// What a process package keeps, and what becomes of it when the language, the robot or the link
/// changes. The packages are walked in the order in which they were added; one that keeps its pages
/// apart walks them in turn.
///
/// The form is gone before the packages are: no destructor touches a widget.
class ProcessPackage {
public:
    ProcessPackage() = default;
    ProcessPackage(const ProcessPackage &) = delete;
    ProcessPackage &operator=(const ProcessPackage &) = delete;
    virtual ~ProcessPackage() = default;

    /// The form has the texts of another language: what the package wrote on it is written anew.
    virtual void retranslate() { }
    /// The pendant works with another robot: what is held of the last one is forgotten.
    virtual void forgetRobot() { }
    /// The link to the controller came or went.
    virtual void linkChanged() { }
};

/// Packages, or the pages of one, with their owner.
using ProcessPackages = std::vector<std::unique_ptr<ProcessPackage>>;

/// Makes a package that `packages` owns.
template <typename Package, typename... Arguments>
Package *addPackage(ProcessPackages &packages, Arguments &&...arguments)
{
    auto package = std::make_unique<Package>(std::forward<Arguments>(arguments)...);
    Package *added = package.get();
    packages.push_back(std::move(package));
    return added;
}
