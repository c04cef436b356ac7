<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use RuntimeException;

/** Runs jobs, each in a process of its own, under opcache. */
final readonly class Child
{
    private const array SETTINGS = [
        'zend_extension' => 'opcache',
        'opcache.enable_cli' => '1',
        'opcache.file_update_protection' => '0',
        'opcache.validate_timestamps' => '0',
        'opcache.memory_consumption' => '256',
        'opcache.jit_buffer_size' => '128M',
        'extension' => __DIR__ . '/../../modules/php_zorvel.so',
        'memory_limit' => '-1',
    ];

    /** @param list<string> $under the command to run PHP under */
    public function __construct(private Variant $variant, private array $under) {}

    /** @return string what the job printed: one line of JSON */
    public function run(string $job, string ...$arguments): string
    {
        $command = [...$this->php(), __DIR__ . '/../job.php', $job, ...array_values($arguments)];
        $environment = [...getenv(), ...$this->variant->environment()];
        $child = proc_open($command, [1 => ['pipe', 'w']], $pipes, null, $environment);
        $child !== false || throw new RuntimeException('PHP does not start.');
        $line = (string) stream_get_contents($pipes[1]);
        proc_close($child) === 0 || throw new RuntimeException("The job $job has failed.");

        return $line;
    }

    /** @return list<string> */
    private function php(): array
    {
        $command = [...$this->under, PHP_BINARY, '-n'];
        foreach ([...self::SETTINGS, ...$this->variant->settings()] as $name => $value) {
            array_push($command, '-d', "$name=$value");
        }

        return $command;
    }
}
