// The same hosts served by PHP's command line, one process for each and one request at a time: what a page has to be.
import { spawn } from 'node:child_process'
import { freePort, listening } from './apache.mjs'
import { Client } from './client.mjs'
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
    const options = Object.entries({ ...settings, sys_temp_dir: `${root}/tmp-command-line` }).flatMap(([key, value]) => ['-d', `${key}=${value}`])
    const program = spawn(php, ['-c', `${root}/with`, ...options, '-S', `127.0.0.1:${port}`, '-t', folder], { stdio: 'ignore' })
    process.on('exit', () => program.kill())
    this.#programs.push(program)
    await listening(program, port)
    this.#clients[name] = new Client(port, 1)
  }

  ask(request) {
    return this.#clients[request.host].ask(request)
  }

  stop() {
    this.#programs.forEach(program => program.kill())
  }
}
