<?php

declare(strict_types=1);

namespace Zorvel\Bench;

/** What runs PHP in a child process: as PHP says, not as it was asked for. */
final readonly class Setting
{
    private function __construct(
        public string $zorvel,
        public string $php,
        public bool $threadSafe,
        public bool $opcache,
        public bool $jit,
    ) {}

    public static function ofThisProcess(): self
    {
        $opcache = opcache_get_status(false) ?: [];
        $jit = is_array($opcache['jit'] ?? null) && ($opcache['jit']['on'] ?? false) === true;

        return new self((string) phpversion('zorvel'), PHP_VERSION, ZEND_THREAD_SAFE, $opcache !== [], $jit);
    }

    public static function ofJson(string $json): self
    {
        /** @var array{zorvel: string, php: string, threadSafe: bool, opcache: bool, jit: bool} $setting */
        $setting = json_decode($json, true, flags: JSON_THROW_ON_ERROR);

        return new self(...$setting);
    }

    public function text(): string
    {
        return implode(', ', [
            "zorvel $this->zorvel, PHP $this->php",
            $this->threadSafe ? 'thread-safe' : 'not thread-safe',
            $this->opcache ? 'opcache' : 'no opcache',
            $this->jit ? 'JIT' : 'no JIT',
        ]);
    }
}
