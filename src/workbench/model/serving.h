#pragma once

#include "com/dispatch_server.h"
#include "workbench/model/workbench_host.h"

#include <map>
#include <memory>
#include <span>
#include <utility>

namespace corvelle::workbench {

/// What the served objects share: the host, and which object serves what.
class Serving : public std::enable_shared_from_this<Serving> {
  public:
    explicit Serving(std::weak_ptr<WorkbenchHost> host) : host_(std::move(host)) {}

    /// Throws HresultError(RPC_E_DISCONNECTED) once there is none.
    std::shared_ptr<WorkbenchHost> host() const;
    /// The host's open projects. Throws RunTimeError 91 if there are none.
    std::shared_ptr<workspace::Workspace> workspace() const;

    /// The object of class Server for a part of the model; the same as long as one lives. Nothing for
    /// Nothing.
    template <class Server, class Model>
    com::Ptr<Server> object(const std::shared_ptr<Model>& model) {
        if (!model) return {};
        auto& object = objects_[{model.get(), &Server::kind}];
        if (object) return com::Ptr<Server>(static_cast<Server*>(object));
        auto made = com::make<Server>(shared_from_this(), model);
        object = made.get();
        return made;
    }
    /// The object of class Server for the whole.
    template <class Server>
    com::Ptr<Server> object() {
        return object<Server>(shared_from_this());
    }
    /// The object, if it is one of these of that class; else null.
    template <class Server>
    Server* find(IDispatch* object) const {
        for (const auto& [key, known] : objects_) {
            if (known == object && key.second == &Server::kind) return static_cast<Server*>(known);
        }
        return nullptr;
    }
    void forget(const void* model, const void* kind) { objects_.erase({model, kind}); }

  private:
    std::weak_ptr<WorkbenchHost> host_;
    std::map<std::pair<const void*, const void*>, IDispatch*> objects_; // none is kept alive
};

/// An Automation object over a part of the model.
template <class Self, class Model>
class Served : public com::DispatchServer<Self> {
  public:
    static constexpr char kind = 0; // its address tells the class

    Served(std::shared_ptr<Serving> serving, std::shared_ptr<Model> model)
        : serving_(std::move(serving)), model_(std::move(model)) {}
    ~Served() override { serving_->forget(model_.get(), &kind); }

    Serving& serving() const { return *serving_; }
    Model& model() const { return *model_; }
    const std::shared_ptr<Model>& modelPointer() const { return model_; }

  private:
    std::shared_ptr<Serving> serving_;
    std::shared_ptr<Model> model_;
};

template <class Self>
using Members = std::span<const com::Member<Self>>;

} // namespace corvelle::workbench
