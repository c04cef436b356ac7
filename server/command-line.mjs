// The same hosts served by PHP's command line, one process for each and one request at a time: what a page has to be.
import { Client } from './client.mjs'
import { freePort, launch } from './programs.mjs'
import { hosts, php, root } from './site.mjs'

export class CommandLine {
  #programs = []
  #clients = {}

  static async start() {
    const self = new CommandLine()
    await Promise.all(Object.entries(hosts).map(([name, host]) => self.#serve(name, host)))
    return self
  }

  async #serve(name, { folder, settings }) {
    const port = await freePort()
    const all = Object.entries({ ...settings, sys_temp_dir: `${root}/tmp-command-line` })
    const options = ['-c', `${root}/with`, '-S', `127.0.0.1:${port}`, '-t', folder, ...all.flatMap(([key, value]) => ['-d', `${key}=${value}`])]
    this.#programs.push(await launch(php, options, port, 'ignore'))
    this.#clients[name] = new Client(port, 1)
  }

  ask(request) {
    return this.#clients[request.host].ask(request)
  }

  stop() {
    this.#programs.forEach(program => program.kill())
  }
}
