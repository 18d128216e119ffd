#pragma once

#include "platform/TempFolder.h"
#include "zentrel/Responder.h"
#include "zentrel/Service.h"

#include <functional>
#include <memory>
#include <vector>

// A living server to look at: a service in a temporary folder with web sites made from files of this
// machine, their cache warmed. The folder goes with the Demo, which therefore outlives all users of the
// service.
class Demo {
public:
    // Takes a second or two. `goesOn` is asked often; Cancelled when it answers false.
    static Result<Demo> Make(const std::function<bool()>& goesOn);

    const std::shared_ptr<zentrel::Service>& Service() const { return m_service; }

    // What visitors of the sites ask for, the most wanted first.
    const std::vector<zentrel::Request>& Requests() const { return m_requests; }

private:
    explicit Demo(TempFolder folder) : m_folder(std::move(folder)) {}

    Done AddSites();
    Done Warm(const std::function<bool()>& goesOn);
    Done AnswerFirstVisitors();

    TempFolder m_folder;
    std::shared_ptr<zentrel::Service> m_service;
    std::vector<zentrel::Request> m_requests;
};
