<?php

declare(strict_types=1);

namespace Zorvel;

use Error;
use LogicException;

use function restore_error_handler;
use function set_error_handler;
use function zorvel;

/** Calls the engine, and throws what it says in place of a page. */
final class Engine
{
    // PHP's own warnings that arise in the call; whatever else arises there is the engine's.
    private const string ARRAY = 'Array to string conversion';
    private const string ARGUMENTS = 'zorvel(';

    /** @var list<string> */
    private array $warnings = [];

    /** @var ?callable the error handler that stood before the call */
    private mixed $previous = null;

    private function __construct(private readonly bool $ignoresArrays) {}

    /**
     * @param string $template the name of a file, which is looked for along include_path, or the text itself
     * @param array<array-key, mixed> $data
     * @param bool $ignoresArrays whether PHP's warning about an array in place of a text is kept from everyone
     * @throws EngineFailure
     */
    public static function page(string $template, array $data, bool $isText = false, bool $ignoresArrays = false): string
    {
        $engine = new self($ignoresArrays);
        $engine->previous = set_error_handler($engine);
        try {
            $page = zorvel($template, $data, $isText);
        } catch (Error $error) {
            throw extension_loaded('zorvel') ? $error : new LogicException('The extension zorvel is not loaded', 0, $error);
        } finally {
            restore_error_handler();
        }
        $failure = $page === null ? array_pop($engine->warnings) : null;
        foreach ($engine->warnings as $warning) {
            trigger_error($warning, E_USER_WARNING);
        }

        return $page ?? throw new EngineFailure($failure ?? 'No page');
    }

    /**
     * Keeps the engine's warnings, of which the last tells why there is no page. Every other diagnostic goes to the
     * handler that stood before, which PHP would call whatever error_reporting says; for which levels it was
     * installed PHP tells nobody. Without one, false has PHP treat it.
     */
    public function __invoke(int $level, string $message, string $file, int $line): bool
    {
        if ($level === E_WARNING && $file === __FILE__ && $this->takes($message)) {
            return true;
        }

        return $this->previous !== null && ($this->previous)($level, $message, $file, $line) !== false;
    }

    private function takes(string $message): bool
    {
        if ($message === self::ARRAY) {
            return $this->ignoresArrays;
        }
        if (str_starts_with($message, self::ARGUMENTS)) {
            return false;
        }
        $this->warnings[] = $message;

        return true;
    }
}
