// SPDX-License-Identifier: Apache-2.0
// Keeps the line to the agent open and answers what it asks. Chromium browsers run this as a service
// worker, Firefox as an event page; an open native port keeps both from being put to sleep.
import { Tabs, api } from "./tabs.js";

const hostName = "com.skipnest.browser_host";
const shortestPause = 1_000;
const longestPause = 60_000;

const tabs = new Tabs();
let port = null;
let retry = null;
let pause = shortestPause;

function connect() {
    if (port !== null) return;
    clearTimeout(retry);
    retry = null;
    const opened = api.runtime.connectNative(hostName);
    port = opened;
    opened.onMessage.addListener((message) => {
        // The agent greets: this line works, so the next one is tried soon again.
        pause = shortestPause;
        if (Number.isInteger(message?.id)) void reply(opened, message);
    });
    opened.onDisconnect.addListener(() => {
        void api.runtime.lastError; // read, or the browser reports it as unchecked
        port = null;
        retry = setTimeout(connect, pause);
        pause = Math.min(2 * pause, longestPause);
    });
}

async function reply(to, request) {
    let answer;
    try {
        answer = await tabs.carryOut(request);
    } catch (error) {
        answer = { error: String(error?.message ?? error) };
    }
    // Lost in the meantime: nobody waits for the answer any more.
    if (port === to) to.postMessage({ id: request.id, ...answer });
}

// A worker that was put to sleep between two attempts has lost its timer; what people do in the
// browser wakes it.
function wake() {
    if (retry === null) connect();
}

api.runtime.onStartup.addListener(wake);
api.runtime.onInstalled.addListener(wake);
api.tabs.onActivated.addListener(wake);
api.windows.onFocusChanged.addListener((windowId) => {
    tabs.noteFocus(windowId);
    wake();
});
connect();
