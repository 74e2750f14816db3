// What is asked of this process from outside: to end, by SIGTERM, SIGINT or SIGHUP, and to show its
// window, by another process that found this one running. Each ends SDL's wait.
#pragma once

namespace desktop {

struct Requests
{
    bool close = false;
    bool show = false;
};

/// Prepares for requests; SDL's video must have been initialised. From now on they come only while
/// a RequestsLetIn lives, so that none can slip in between two steps.
void listenForRequests();

/// To live around SDL's wait.
class RequestsLetIn
{
public:
    RequestsLetIn();
    RequestsLetIn(const RequestsLetIn &) = delete;
    RequestsLetIn &operator=(const RequestsLetIn &) = delete;
    ~RequestsLetIn();
};

/// Asks this process to end, as SIGTERM does.
void requestClose();

/// What was asked since the last call, once SDL has no more events. `sdlQuits`: there was an
/// SDL_QUIT among them. Every request makes one, so it is a wish to close only when none came.
Requests takeRequests(bool sdlQuits);

} // namespace desktop
