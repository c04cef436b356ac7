// Apache as a child of this process, and what the system tells about it.
import { once } from 'node:events'
import { readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs'
import { setTimeout as sleep } from 'node:timers/promises'
import { freePort, launch } from './programs.mjs'
import { configure, root } from './site.mjs'

export class Apache {
  /** INI is the folder of its php.ini. */
  static async start(ini = 'with') {
    const port = await freePort()
    configure(port, ini)
    rmSync(`${root}/error.log`, { force: true })
    const options = ['-d', root, '-f', `${root}/httpd.conf`, '-D', 'FOREGROUND']
    const apache = new Apache(await launch('/usr/sbin/apache2', options, port, 'inherit'), port)
    while (apache.processes.length === 0) await sleep(20) // until then a signal would kill it
    return apache
  }

  constructor(program, port) {
    this.program = program
    this.port = port
    this.stopping = false
    program.on('exit', (code, signal) => {
      if (!this.stopping) throw new Error(`Apache ended by itself, with ${signal ?? code}`)
    })
  }

  restartGracefully() {
    this.program.kill('SIGUSR1')
  }

  async stop() {
    this.stopping = true
    this.program.kill()
    await once(this.program, 'exit')
  }

  get log() {
    return readFileSync(`${root}/error.log`, 'utf8')
  }

  get processes() {
    return readFileSync(`/proc/${this.program.pid}/task/${this.program.pid}/children`, 'utf8').split(' ').filter(Boolean)
  }

  get state() {
    return { processes: this.processes, resident: this.resident, openFiles: this.openFiles }
  }

  /** Bytes of memory that are the processes' own and resident. */
  get resident() {
    return this.#status('RssAnon')
  }

  get peak() {
    return this.#status('VmHWM')
  }

  forgetPeak() {
    this.processes.forEach(pid => writeFileSync(`/proc/${pid}/clear_refs`, '5'))
  }

  get openFiles() {
    return sum(this.processes.map(pid => readdirSync(`/proc/${pid}/fd`).length))
  }

  /** Milliseconds of processor time that the processes' threads have had. */
  get processorTime() {
    const tasks = this.processes.flatMap(pid => readdirSync(`/proc/${pid}/task`).map(task => `/proc/${pid}/task/${task}`))
    return sum(tasks.map(task => Number(readFileSync(`${task}/schedstat`, 'utf8').split(' ')[0]))) / 1e6
  }

  #status(line) {
    const kilobytes = pid => Number(new RegExp(`^${line}:\\s+(\\d+) kB`, 'm').exec(readFileSync(`/proc/${pid}/status`, 'utf8'))[1])
    return sum(this.processes.map(kilobytes)) * 1024
  }
}

const sum = numbers => numbers.reduce((a, b) => a + b, 0)
